// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/TextTabs.h"

#include <QMouseEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>

#include <algorithm>

#include "controls/ShownText.h"
#include "manualeditor/IniTextEdit.h"

namespace korvane {

namespace {

constexpr int kLongestCaption = 40;  // characters

QString FolderOf(const QString& file) {
  return file.section('\\', -2, -2);
}

}  // namespace

TextTabs::TextTabs(IniTextEdit& text, Make make)
    : text_(text), make_(std::move(make)), current_(this->make()) {
  setObjectName("textTabs");
  setAccessibleName("Open files");
  setDocumentMode(true);
  setExpanding(false);
  setTabsClosable(true);
  setMovable(true);
  setFocusPolicy(Qt::NoFocus);  // the keyboard stays in the text
  setAutoHide(true);
  add(*current_);
  connect(this, &QTabBar::currentChanged, this, &TextTabs::showAt);
  connect(this, &QTabBar::tabCloseRequested, this, &TextTabs::close);
  connect(this, &QTabBar::tabMoved, this, [this](int from, int to) {
    const auto begin = texts_.begin();
    from < to ? std::rotate(begin + from, begin + from + 1, begin + to + 1)
              : std::rotate(begin + to, begin + from, begin + from + 1);
  });
  connect(&text_, &IniTextEdit::documentShown, this, &TextTabs::followShown);
  connect(&text_, &IniTextEdit::modificationChanged, this, &TextTabs::refresh);
}

OpenText* TextTabs::make() {
  OpenText* text = make_(this);
  connect(text, &OpenText::toldOf, this, [this, text](OpenText::Notice notice) {
    refresh();
    if (text == current_ || notice == OpenText::ofDraft) Q_EMIT toldOf(notice);
  });
  connect(text, &OpenText::loadedAnew, this, &TextTabs::loadedAnew);
  return text;
}

OpenText& TextTabs::current() const {
  return *current_;
}

OpenText* TextTabs::at(int index) const {
  const bool inside = index >= 0 && static_cast<std::size_t>(index) < texts_.size();
  return inside ? texts_[static_cast<std::size_t>(index)] : nullptr;
}

int TextTabs::indexOf(const OpenText& text) const {
  return static_cast<int>(std::ranges::find(texts_, &text) - texts_.begin());
}

OpenText* TextTabs::whole(const QString& file) const {
  const auto found = std::ranges::find_if(texts_, [&file](const OpenText* text) {
    return text->isWhole() && text->file().compare(file, Qt::CaseInsensitive) == 0;
  });
  return found == texts_.end() ? nullptr : *found;
}

bool TextTabs::hasUnsaved(const QString& file) const {
  const OpenText* text = whole(file);
  return text != nullptr && text->isUnsaved();
}

bool TextTabs::hasUnsaved() const {
  return std::ranges::any_of(texts_, [](const OpenText* text) { return text->isUnsaved(); });
}

Catalogue::Files TextTabs::unsavedNames(const QString& besides) const {
  Catalogue::Files files;
  for (const OpenText* text : texts_) {
    if (!besides.isEmpty() && text->pathInGame() == besides) continue;
    if (auto names = text->unsavedNames()) files.push_back(std::move(names));
  }
  return files;
}

QStringList TextTabs::saidOfDrafts() const {
  QStringList sentences;
  for (const OpenText* text : texts_) {
    const QString& sentence = text->said(OpenText::ofDraft);
    if (!sentence.isEmpty() && !sentences.contains(sentence)) sentences += sentence;
  }
  return sentences;
}

// A text that was extracted from an archive takes the place of the archive's.
OpenText* TextTabs::tabFor(const ManualEditRequest& request) const {
  const auto matching = [this](const ManualEditRequest& wanted) {
    const auto found =
        std::ranges::find_if(texts_, [&wanted](const OpenText* text) { return text->isFor(wanted); });
    return found == texts_.end() ? nullptr : *found;
  };
  if (OpenText* same = matching(request)) return same;
  ManualEditRequest extracted = request;
  extracted.archive = current_->archive();
  return request.archive.isEmpty() && current_->isFor(extracted) ? current_ : nullptr;
}

TextTabs::Opened TextTabs::open(const ManualEditRequest& request) {
  OpenText* text = tabFor(request);
  if (text != nullptr && text->isUnsaved()) {
    bringForward(*text);
    text->tellNotLoaded();
    return Opened::broughtForward;
  }
  if (text == nullptr && current_->file().isEmpty()) text = current_;
  const bool isNew = text == nullptr;
  if (isNew) text = make();
  const QScopedValueRollback opening(opening_, true);
  if (!text->open(request)) {
    if (isNew) delete text;
    return Opened::failed;
  }
  if (isNew) add(*text);
  followShown();
  refresh();
  return Opened::loaded;
}

void TextTabs::add(OpenText& text) {
  texts_.push_back(&text);
  const QSignalBlocker quiet(this);
  addTab({});
}

// From here on the text is the tab's again, as another program may have left it.
void TextTabs::showAt(int index) {
  OpenText* text = at(index);
  if (text == nullptr) return;
  text->show();
  text->lookAgain();
}

void TextTabs::bringForward(const OpenText& text) {
  setCurrentIndex(indexOf(text));
}

void TextTabs::showNext() {
  setCurrentIndex((currentIndex() + 1) % count());
}

void TextTabs::showPrevious() {
  setCurrentIndex((currentIndex() + count() - 1) % count());
}

// A text may also come forward by itself, to be asked about.
void TextTabs::followShown() {
  const auto shown = std::ranges::find_if(texts_, [](const OpenText* text) { return text->isShown(); });
  if (shown == texts_.end()) return;
  {
    const QSignalBlocker quiet(this);
    setCurrentIndex(static_cast<int>(shown - texts_.begin()));
  }
  if (current_ == *shown) return;
  current_ = *shown;
  if (!opening_) Q_EMIT otherShown();
}

bool TextTabs::letGo() {
  return std::ranges::all_of(texts_, [](OpenText* text) { return text->letGo(); });
}

void TextTabs::keepAtEnd() {
  for (OpenText* text : texts_) text->keepAtEnd();
}

void TextTabs::lookAgain() {
  for (OpenText* text : texts_) text->lookAgain();
}

void TextTabs::closeCurrent() {
  close(currentIndex());
}

void TextTabs::close(int index) {
  if (texts_.size() < 2) return Q_EMIT lastClosed();
  OpenText* text = at(index);
  if (text != nullptr && text->letGo()) remove(*text);
}

void TextTabs::remove(OpenText& text) {
  const int index = indexOf(text);
  texts_.erase(texts_.begin() + index);
  removeTab(index);
  if (current_ == &text) showAt(currentIndex());
  delete &text;
  refresh();
}

void TextTabs::startAnew() {
  OpenText* empty = make();
  add(*empty);
  empty->show();
  while (texts_.size() > 1) remove(*texts_.front());
}

void TextTabs::refresh() {
  for (int i = 0; i < count(); ++i) {
    const OpenText& text = *texts_[static_cast<std::size_t>(i)];
    setTabText(i, captionOf(text).replace('&', "&&") + (text.isUnsaved() ? "*" : ""));
    setTabToolTip(i, PlainToolTip(text.isPart() ? text.caption() + '\n' + text.file() : text.file()));
  }
}

// Files of one name are told apart by their folders.
QString TextTabs::captionOf(const OpenText& text) const {
  QString caption = text.caption();
  const bool ambiguous = std::ranges::any_of(texts_, [&](const OpenText* other) {
    return other != &text && other->caption() == caption && other->file() != text.file();
  });
  if (ambiguous) caption += " (" + FolderOf(text.file()) + ')';
  if (!text.archive().isEmpty()) caption += " (" + ArchiveName(text.archive()) + ')';
  const bool fits = caption.size() <= kLongestCaption;
  return fits ? caption : caption.left(kLongestCaption - 1) + QChar(0x2026);
}

void TextTabs::mouseReleaseEvent(QMouseEvent* event) {
  const int index = tabAt(event->pos());
  if (event->button() == Qt::MiddleButton && index >= 0) return close(index);
  QTabBar::mouseReleaseEvent(event);
}

}  // namespace korvane
