// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/BlockDuplication.h"

#include <Qsci/qsciscintilla.h>

#include <algorithm>

#include "app/CatalogueService.h"
#include "manualeditor/BlockOutline.h"
#include "manualeditor/IniTextEdit.h"
#include "manualeditor/NewNameDialog.h"
#include "manualeditor/OpenText.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr qsizetype kMostNames = 12;  // that are told one by one

QString TextOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QStringList TextsOf(const std::vector<std::string>& texts) {
  QStringList all;
  for (const std::string& text : texts) all += TextOf(text);
  return all;
}

std::string HeaderOf(const TextBlock& block) {
  return block.keyword + ' ' + std::string(NameOf(block));
}

// "A, B and 3 module tags (X to Y)".
QString WorthChanging(const OwnNames& own) {
  QStringList parts = TextsOf(own.names);
  const qsizetype more = parts.size() - kMostNames;
  if (more > 0) parts = parts.first(kMostNames) + QStringList(QStringLiteral("%1 more").arg(more));
  const QStringList tags = TextsOf(own.moduleTags);
  if (tags.size() == 1) parts += "the module tag " + tags.front();
  if (tags.size() > 1) {
    parts +=
        QStringLiteral("the %1 module tags from %2 to %3").arg(tags.size()).arg(tags.front(), tags.back());
  }
  if (parts.size() < 2) return parts.join(QString());
  const QString last = parts.takeLast();
  return parts.join(", ") + " and " + last;
}

}  // namespace

BlockDuplication::BlockDuplication(IniTextEdit& text, BlockOutline& outline, CatalogueService& names)
    : QObject(&text), text_(text), outline_(outline), names_(names) {
  connect(&outline_, &BlockOutline::changed, this, &BlockDuplication::lookForCopy);
}

void BlockDuplication::setText(OpenText& shown) {
  shown_ = &shown;
  Q_EMIT said(shown.copyNote().sentence);
}

void BlockDuplication::say(const QString& sentence, const std::string& copy) {
  shown_->copyNote() = {copy, sentence};
  Q_EMIT said(sentence);
}

const TextBlock* BlockDuplication::blockAtCursor() const {
  const auto path = outline_.pathAt(text_.cursorLine());
  return path.empty() ? nullptr : path.front();
}

QString BlockDuplication::whyNot() const {
  const bool readOnly = text_.view().send(QsciScintillaBase::SCI_GETREADONLY) != 0;
  if (shown_->pathInGame().isEmpty() || readOnly)
    return "Only blocks of a whole file that can be saved are duplicated.";
  const TextBlock* block = blockAtCursor();
  return block == nullptr ? "There is no block here." : TextOf(WhyNoCopy(*block));
}

QString BlockDuplication::whyNotNamed(const QString& name) const {
  const TextBlock* block = blockAtCursor();
  if (block == nullptr) return "There is no block here.";
  const std::string utf8 = name.toStdString();
  const QString file = shown_->pathInGame();
  const std::string path = file.toStdString();
  const CataloguePtr names = names_.withUnsaved(file);
  return TextOf(WhyNotNamed({utf8, *block, outline_.blocks(), names.get(), path}));
}

// The window waits for the answer, but other windows may change the text meanwhile.
void BlockDuplication::ask() {
  names_.ensure();
  outline_.refresh();
  const QString reason = whyNot();
  say(reason);
  if (!reason.isEmpty()) return;
  const TextBlock& block = *blockAtCursor();
  const QString caption = "&Name of the copy of " + TextOf(HeaderOf(block)).replace('&', "&&") + ':';
  const auto whyNotThis = [this](const QString& name) { return whyNotNamed(name); };
  auto* dialog = new NewNameDialog(caption, TextOf(NameOf(block)), whyNotThis, text_.window());
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  connect(dialog, &QDialog::accepted, this, [this, dialog] { duplicate(dialog->name()); });
  dialog->open();
}

void BlockDuplication::duplicate(const QString& name) {
  outline_.refresh();
  if (!whyNot().isEmpty() || !whyNotNamed(name).isEmpty()) return;
  const TextBlock block = *blockAtCursor();
  const std::string utf8 = name.toStdString();
  const QString sentence = tellOf(block, utf8);
  const BlockCopy copy = CopyOf(text_.utf8(), block, utf8);
  const auto behind = static_cast<qsizetype>(block.behind);
  text_.replaceSpan({behind, behind}, copy.text);
  const auto from = behind + static_cast<qsizetype>(copy.nameAt);
  text_.select({from, from + static_cast<qsizetype>(utf8.size())});
  outline_.refresh();
  say(sentence, block.keyword + ' ' + utf8);
}

QString BlockDuplication::tellOf(const TextBlock& block, const std::string& name) const {
  QString sentence = TextOf(block.keyword + ' ' + name) + " is a copy of " + TextOf(NameOf(block)) + ". ";
  const CataloguePtr names = names_.withUnsaved();
  const QString own = WorthChanging(OwnNamesIn(text_.utf8(), block, names.get()));
  if (!own.isEmpty()) sentence += "Worth changing in it too: " + own + ". ";
  sentence += "Find Anything finds it at once";
  const bool inTree = block.keyword.compare(0, 6, "Object") == 0;
  return sentence + (inTree ? "; the tree of objects has it after the next start." : ".");
}

// An undo takes the copy away, and so may the user. The blocks of another text may come before that text.
void BlockDuplication::lookForCopy() {
  if (shown_.isNull() || !shown_->isShown() || shown_->copyNote().header.empty()) return;
  const bool there = std::ranges::any_of(outline_.blocks(), [this](const TextBlock& block) {
    return block.depth == 0 && HeaderOf(block) == shown_->copyNote().header;
  });
  if (!there) say({});
}

}  // namespace korvane
