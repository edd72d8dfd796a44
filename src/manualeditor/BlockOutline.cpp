// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/BlockOutline.h"

#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <utility>

#include "manualeditor/IniTextEdit.h"

namespace korvane {

namespace {

using Sci = QsciScintillaBase;

constexpr int kAfterEdit = 300;               // milliseconds without an edit before the blocks are read anew
constexpr int kAfterLoading = 50;             // milliseconds in which a new text is painted first
constexpr std::size_t kFoldedAtOnce = 8'000;  // lines, so that no key has to wait
constexpr std::size_t kReadAtOnce = 1 << 16;  // bytes of a text that is read faster than it is painted
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

// The control would paint all of the text for each line whose level changes, and unfold what is folded there:
// while nothing is, neither is needed.
class UnpaintedFolds {
 public:
  explicit UnpaintedFolds(const ScintillaView& view)
      : view_(view), shown_(*view.control().viewport()), automatic_(view.send(Sci::SCI_GETAUTOMATICFOLD)) {
    shown_.setAttribute(Qt::WA_UpdatesDisabled);
    view_.send(Sci::SCI_SETAUTOMATICFOLD, automatic_ & ~qsizetype{Sci::SC_AUTOMATICFOLD_CHANGE});
  }
  ~UnpaintedFolds() {
    view_.send(Sci::SCI_SETAUTOMATICFOLD, automatic_);
    shown_.setAttribute(Qt::WA_UpdatesDisabled, false);
    if (paint_) shown_.update();
  }
  UnpaintedFolds(const UnpaintedFolds&) = delete;
  UnpaintedFolds& operator=(const UnpaintedFolds&) = delete;

  // What has changed is in sight.
  void paintAfterwards() { paint_ = true; }

 private:
  ScintillaView view_;
  QWidget& shown_;
  qsizetype automatic_;
  bool paint_ = false;
};

}  // namespace

BlockOutline::BlockOutline(IniTextEdit& text) : QObject(&text), text_(text) {
  refreshSoon_.setSingleShot(true);
  connect(&refreshSoon_, &QTimer::timeout, this, &BlockOutline::refresh);
  foldSoon_.setSingleShot(true);
  connect(&foldSoon_, &QTimer::timeout, this, &BlockOutline::foldSome);
  connect(&text_, &IniTextEdit::edited, this, &BlockOutline::textEdited);
  connect(&text_, &IniTextEdit::cursorMayHaveMoved, this, &BlockOutline::followCursor);
  connect(&text_, &IniTextEdit::documentShown, this, [this] {
    foldLevels_.clear();
    state_ = State::unread;
    refresh();
  });
}

void BlockOutline::expectNewText() {
  state_ = State::unread;
  if (text_.utf8().size() <= kReadAtOnce) return refresh();
  refreshSoon_.start(kAfterLoading);
}

// The lines that an edit moves take their levels with them, but not the end of those that are done.
void BlockOutline::textEdited() {
  if (state_ == State::read) state_ = State::outdated;
  if (foldSoon_.isActive()) foldLevels_.clear();
  foldSoon_.stop();
  refreshSoon_.start(kAfterEdit);
}

void BlockOutline::read() const {
  const std::string_view utf8 = text_.utf8();
  blocks_ = std::make_shared<const Blocks>(utf8.size() <= kLargest ? ReadBlocks(utf8) : Blocks());
  state_ = State::read;
  current_ = TextBlock::kNone;
}

std::shared_ptr<const BlockOutline::Blocks> BlockOutline::keptBlocks() const {
  if (state_ == State::unread) read();
  return blocks_;
}

const BlockOutline::Blocks& BlockOutline::blocks() const {
  return *keptBlocks();
}

void BlockOutline::refresh() {
  refreshSoon_.stop();
  if (state_ != State::read) read();
  startFolds();
  Q_EMIT changed();
  followCursor();
  Q_EMIT currentChanged();
}

void BlockOutline::startFolds() {
  const auto lines = static_cast<std::size_t>(text_.lineCount());
  wantedLevels_ = FoldLevels(*blocks_, lines);
  foldLevels_.resize(lines, -1);
  folded_ = 0;
  foldSome();
}

void BlockOutline::foldSome() {
  const ScintillaView view = text_.view();
  if (view.send(Sci::SCI_GETALLLINESVISIBLE) == 0) {
    setSomeLevels();
  } else {
    UnpaintedFolds unpainted(view);
    if (setSomeLevels()) unpainted.paintAfterwards();
  }
  if (folded_ < wantedLevels_.size()) foldSoon_.start(0);
}

// Only what differs is told to the control. True when it is in sight.
bool BlockOutline::setSomeLevels() {
  const ScintillaView view = text_.view();
  const auto top = static_cast<std::size_t>(view.send(Sci::SCI_GETFIRSTVISIBLELINE));
  const auto bottom = top + static_cast<std::size_t>(view.send(Sci::SCI_LINESONSCREEN));
  bool seen = false;
  const std::size_t end = std::min(folded_ + kFoldedAtOnce, wantedLevels_.size());
  for (; folded_ < end; ++folded_) {
    const int level = wantedLevels_[folded_];
    if (level == std::exchange(foldLevels_[folded_], level)) continue;
    view.send(Sci::SCI_SETFOLDLEVEL, static_cast<qsizetype>(folded_), level);
    seen = seen || (top <= folded_ && folded_ <= bottom);
  }
  return seen;
}

void BlockOutline::finishFolds() {
  if (state_ != State::read) refresh();
  for (foldSoon_.stop(); folded_ < wantedLevels_.size();) foldSome();
  foldSoon_.stop();
}

const TextBlock* BlockOutline::blockAt(int line) const {
  const std::uint32_t index = BlockAtLine(blocks(), static_cast<std::uint32_t>(line) + 1);
  return index == TextBlock::kNone ? nullptr : &(*blocks_)[index];
}

std::vector<const TextBlock*> BlockOutline::pathAt(int line) const {
  return pathOf(blockAt(line));
}

std::vector<const TextBlock*> BlockOutline::currentPath() const {
  return pathOf(current());
}

const TextBlock* BlockOutline::current() const {
  return current_ < blocks_->size() ? &(*blocks_)[current_] : nullptr;
}

std::vector<const TextBlock*> BlockOutline::pathOf(const TextBlock* block) const {
  std::vector<const TextBlock*> path;
  while (block != nullptr) {
    path.insert(path.begin(), block);
    block = block->parent == TextBlock::kNone ? nullptr : &(*blocks_)[block->parent];
  }
  return path;
}

QString BlockOutline::captionOf(const TextBlock& block) {
  const QString words = QString::fromUtf8(block.words.data(), static_cast<qsizetype>(block.words.size()));
  return (QString::fromStdString(block.keyword) + (block.sign ? " = " : " ") + words).simplified();
}

// A text that is not read yet is about to be.
void BlockOutline::followCursor() {
  if (state_ == State::unread) return;
  const TextBlock* block = blockAt(text_.cursorLine());
  const auto index =
      block == nullptr ? TextBlock::kNone : static_cast<std::uint32_t>(block - blocks_->data());
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
  finishFolds();
  const std::vector<const TextBlock*> path = pathAt(text_.cursorLine());
  text_.view().send(Sci::SCI_FOLDALL, Sci::SC_FOLDACTION_CONTRACT);
  if (!path.empty()) goTo(*path.front());
}

// The line at the cursor, or the first one where the cursor is not seen, stays where it is on the screen.
void BlockOutline::unfoldAll() {
  finishFolds();
  const ScintillaView view = text_.view();
  const auto top = view.send(Sci::SCI_GETFIRSTVISIBLELINE);
  const auto row = view.send(Sci::SCI_VISIBLEFROMDOCLINE, text_.cursorLine()) - top;
  const bool seen = row >= 0 && row < view.send(Sci::SCI_LINESONSCREEN);
  const auto line = seen ? text_.cursorLine() : view.send(Sci::SCI_DOCLINEFROMVISIBLE, top);
  view.send(Sci::SCI_FOLDALL, Sci::SC_FOLDACTION_EXPAND);
  view.send(Sci::SCI_SETFIRSTVISIBLELINE, view.send(Sci::SCI_VISIBLEFROMDOCLINE, line) - (seen ? row : 0));
}

void BlockOutline::toggleFold() {
  finishFolds();
  const TextBlock* block = blockAt(text_.cursorLine());
  if (block == nullptr) return;
  goTo(*block);
  text_.view().send(Sci::SCI_TOGGLEFOLD, FirstLine(*block));
}

}  // namespace korvane
