// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/BlockOutline.h"

#include <Qsci/qsciscintilla.h>

#include <algorithm>

#include "manualeditor/IniTextEdit.h"

namespace korvane {

namespace {

using Sci = QsciScintillaBase;

constexpr int kAfterEdit = 300;               // milliseconds without an edit before the blocks are read anew
constexpr std::size_t kLargest = 16'000'000;  // bytes of a text whose blocks are read
constexpr std::size_t kWordEnd = 3;           // letters of "End"

int FirstLine(const TextBlock& block) {
  return static_cast<int>(block.firstLine) - 1;
}

int LastLine(const TextBlock& block) {
  return static_cast<int>(block.lastLine) - 1;
}

std::vector<int> FoldLevels(const std::vector<TextBlock>& blocks, std::size_t lines) {
  std::vector<int> levels(lines, Sci::SC_FOLDLEVELBASE);
  for (const TextBlock& block : blocks) {
    const std::size_t first = block.firstLine - 1;
    const std::size_t behind = std::min<std::size_t>(block.lastLine, lines);
    if (first + 1 >= behind) continue;
    levels[first] |= Sci::SC_FOLDLEVELHEADERFLAG;
    std::for_each(levels.begin() + static_cast<std::ptrdiff_t>(first) + 1,
                  levels.begin() + static_cast<std::ptrdiff_t>(behind), [](int& level) { ++level; });
  }
  return levels;
}

}  // namespace

BlockOutline::BlockOutline(IniTextEdit& text) : QObject(&text), text_(text) {
  refreshSoon_.setSingleShot(true);
  refreshSoon_.setInterval(kAfterEdit);
  connect(&refreshSoon_, &QTimer::timeout, this, &BlockOutline::refresh);
  connect(&text_, &IniTextEdit::edited, &refreshSoon_, qOverload<>(&QTimer::start));
  connect(&text_, &IniTextEdit::cursorMayHaveMoved, this, &BlockOutline::followCursor);
  connect(&text_, &IniTextEdit::documentShown, this, [this] {
    foldLevels_.clear();
    refresh();
  });
}

void BlockOutline::refresh() {
  refreshSoon_.stop();
  const std::string_view utf8 = text_.utf8();
  blocks_ = utf8.size() <= kLargest ? ReadBlocks(utf8) : std::vector<TextBlock>();
  current_ = TextBlock::kNone;
  applyFolds();
  Q_EMIT changed();
  followCursor();
  Q_EMIT currentChanged();
}

// Only what differs is told to the control: it asks for the display of every line that it is told of.
void BlockOutline::applyFolds() {
  const auto lines = static_cast<std::size_t>(text_.lineCount());
  const std::vector<int> levels = FoldLevels(blocks_, lines);
  foldLevels_.resize(lines, -1);
  for (std::size_t line = 0; line < lines; ++line) {
    if (levels[line] == foldLevels_[line]) continue;
    text_.view().send(Sci::SCI_SETFOLDLEVEL, static_cast<qsizetype>(line), levels[line]);
  }
  foldLevels_ = levels;
}

const TextBlock* BlockOutline::blockAt(int line) const {
  const std::uint32_t index = BlockAtLine(blocks_, static_cast<std::uint32_t>(line) + 1);
  return index == TextBlock::kNone ? nullptr : &blocks_[index];
}

std::vector<const TextBlock*> BlockOutline::pathAt(int line) const {
  std::vector<const TextBlock*> path;
  for (const TextBlock* block = blockAt(line); block != nullptr;) {
    path.insert(path.begin(), block);
    block = block->parent == TextBlock::kNone ? nullptr : &blocks_[block->parent];
  }
  return path;
}

QString BlockOutline::captionOf(const TextBlock& block) {
  const QString words = QString::fromUtf8(block.words.data(), static_cast<qsizetype>(block.words.size()));
  return (QString::fromStdString(block.keyword) + (block.sign ? " = " : " ") + words).simplified();
}

void BlockOutline::followCursor() {
  const TextBlock* block = blockAt(text_.cursorLine());
  const auto index = block == nullptr ? TextBlock::kNone : static_cast<std::uint32_t>(block - blocks_.data());
  if (index == current_) return;
  current_ = index;
  markMatch(block);
  Q_EMIT currentChanged();
}

void BlockOutline::markMatch(const TextBlock* block) {
  std::vector<TextSpan> spans;
  if (block != nullptr) {
    spans.push_back(headerSpan(*block));
    if (block->closed) spans.push_back(endSpan(*block));
  }
  text_.setMarks(TextMark::match, spans);
}

TextSpan BlockOutline::headerSpan(const TextBlock& block) const {
  const auto from = text_.view().send(Sci::SCI_POSITIONFROMLINE, FirstLine(block)) + block.column - 1;
  return {from, from + static_cast<qsizetype>(block.keyword.size())};
}

TextSpan BlockOutline::endSpan(const TextBlock& block) const {
  const auto from = text_.view().send(Sci::SCI_GETLINEINDENTPOSITION, LastLine(block));
  return {from, from + static_cast<qsizetype>(kWordEnd)};
}

void BlockOutline::goTo(const TextBlock& block) {
  const TextSpan header = headerSpan(block);
  text_.select({header.from, header.from});
  text_.setFocus();
}

void BlockOutline::jumpToMatch() {
  const int line = text_.cursorLine();
  const TextBlock* block = blockAt(line);
  if (block == nullptr) return;
  const bool toEnd = line == FirstLine(*block) && block->closed;
  const TextSpan target = toEnd ? endSpan(*block) : headerSpan(*block);
  text_.select({target.from, target.from});
}

// The cursor must not be hidden in a fold.
void BlockOutline::foldAll() {
  const std::vector<const TextBlock*> path = pathAt(text_.cursorLine());
  text_.view().send(Sci::SCI_FOLDALL, Sci::SC_FOLDACTION_CONTRACT);
  if (!path.empty()) goTo(*path.front());
}

// The line at the cursor, or the first one where the cursor is not seen, stays where it is on the screen.
void BlockOutline::unfoldAll() {
  const ScintillaView view = text_.view();
  const auto top = view.send(Sci::SCI_GETFIRSTVISIBLELINE);
  const auto row = view.send(Sci::SCI_VISIBLEFROMDOCLINE, text_.cursorLine()) - top;
  const bool seen = row >= 0 && row < view.send(Sci::SCI_LINESONSCREEN);
  const auto line = seen ? text_.cursorLine() : view.send(Sci::SCI_DOCLINEFROMVISIBLE, top);
  view.send(Sci::SCI_FOLDALL, Sci::SC_FOLDACTION_EXPAND);
  view.send(Sci::SCI_SETFIRSTVISIBLELINE, view.send(Sci::SCI_VISIBLEFROMDOCLINE, line) - (seen ? row : 0));
}

void BlockOutline::toggleFold() {
  const TextBlock* block = blockAt(text_.cursorLine());
  if (block == nullptr) return;
  goTo(*block);
  text_.view().send(Sci::SCI_TOGGLEFOLD, FirstLine(*block));
}

}  // namespace korvane
