// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/StructureReader.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <utility>

#include "catalogue/FoldedText.h"
#include "catalogue/LineCutter.h"

namespace korvane {

namespace {

constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";
constexpr std::string_view kLineComment = "//";
constexpr std::uint32_t kLinesBetweenQuestions = 4096;

bool IsBlank(char byte) {
  return static_cast<unsigned char>(byte) <= ' ';
}
constexpr auto kWordEnds = [] {
  std::array<bool, 256> ends{};
  for (std::size_t byte = 0; byte < ends.size(); ++byte) ends[byte] = SeparatesWords(static_cast<char>(byte));
  return ends;
}();

bool EndsWord(char byte) {
  return kWordEnds[static_cast<unsigned char>(byte)];
}

std::size_t SkipBlanks(std::string_view text, std::size_t at) {
  while (at < text.size() && IsBlank(text[at])) ++at;
  return at;
}

std::string_view TrimEnd(std::string_view text) {
  while (!text.empty() && IsBlank(text.back())) text.remove_suffix(1);
  return text;
}

// Up to the first "//" that begins a word, where the text itself begins one or a blank.
std::string_view WithoutLineComment(std::string_view text) {
  for (std::size_t at = text.find(kLineComment); at != std::string_view::npos;
       at = text.find(kLineComment, at + 1))
    if (at == 0 || EndsWord(text[at - 1])) return text.substr(0, at);
  return text;
}

class Reading {
 public:
  Reading(std::string_view text, StructureSink& sink) : text_(text), sink_(sink) {}

  bool run() {
    LineCutter lines(text_);
    for (std::string_view line; lines.next(line);) {
      ++line_;
      offset_ = static_cast<std::size_t>(line.data() - text_.data());
      takeLine(line);
      const bool asks = std::exchange(outside_, false) || line_ % kLinesBetweenQuestions == 0;
      if (asks && !sink_.goesOn()) return false;
    }
    endOfText();
    return true;
  }

 private:
  // A line with a first word, cut at its comment.
  struct Statement {
    std::string_view line;
    TextWord first;
    bool sign = false;
    bool firstColumn = false;
    std::size_t behind = 0;  // where what follows the first word and its "=" begins in the line
  };

  void takeLine(std::string_view line) {
    const std::size_t begin = beginOf(line);
    if (begin == line.size() || line[begin] == ';' || line.substr(begin).starts_with(kLineComment)) return;
    if (const void* comment = std::memchr(line.data() + begin, ';', line.size() - begin))
      line = line.substr(0, static_cast<std::size_t>(static_cast<const char*>(comment) - line.data()));
    std::size_t end = begin;
    while (end < line.size() && !EndsWord(line[end])) ++end;
    const std::size_t behind = SkipBlanks(line, end);
    const bool sign = behind < line.size() && line[behind] == '=';
    takeStatement({line,
                   {line.substr(begin, end - begin), static_cast<std::uint32_t>(begin) + 1},
                   sign,
                   begin == firstColumn(),
                   SkipBlanks(line, behind + (sign ? 1 : 0))});
  }

  std::size_t firstColumn() const { return offset_ == 0 && hasMark_ ? kByteOrderMark.size() : 0; }

  std::size_t beginOf(std::string_view line) {
    hasMark_ = hasMark_ || (offset_ == 0 && line.starts_with(kByteOrderMark));
    return SkipBlanks(line, firstColumn());
  }

  void takeStatement(const Statement& statement) {
    if (statement.first.text.size() == 3 && EqualFolded(statement.first.text, "end")) {
      takeEnd(statement);
    } else if (open_.empty()) {
      takeOutside(statement);
    } else {
      takeInside(statement);
    }
  }

  void takeEnd(const Statement& statement) {
    if (open_.empty()) {
      fault(StructureFault::Kind::strayEnd, statement);
      return;
    }
    const std::size_t behind = std::min(text_.size(), offsetBehindLine(statement));
    sink_.blockEnds(open_.back(), {placeOf(statement.first), true, behind, line_});
    open_.pop_back();
    outside_ = open_.empty();
  }

  void takeOutside(const Statement& statement) {
    const BlockTypeId type = structure_.child(kOutsideBlocks, statement.first.text);
    if (type != kNoBlockType && !statement.sign && (isNamed(statement) || isNameless(type))) {
      begin(type, statement);
    } else if (const KeyFacts* facts = structure_.key(kOutsideBlocks, statement.first.text)) {
      takeKey(statement, facts);
    } else {
      fault(StructureFault::Kind::looseText, statement);
    }
  }

  void takeInside(const Statement& statement) {
    if (const BlockTypeId kind = kindInside(statement); kind != kNoBlockType) {
      leave(0, statement, nullptr);
      begin(kind, statement);
      return;
    }
    const WordMeaning meaning = structure_.meaning(open_.back().type, statement.first.text);
    if (meaning.child != kNoBlockType && mayBegin(meaning.child, statement)) {
      begin(meaning.child, statement);
    } else if (meaning.key != nullptr || !takeAsBlockOfParent(statement)) {
      takeKey(statement, meaning.key);
    }
  }

  // A header in the first column is where another block has begun, whatever is still open. Elsewhere it must
  // have the names of its kind and mean nothing else here.
  BlockTypeId kindInside(const Statement& statement) const {
    if (statement.sign) return kNoBlockType;
    const BlockTypeId type = structure_.child(kOutsideBlocks, statement.first.text);
    if (type == kNoBlockType) return kNoBlockType;
    if (statement.firstColumn && isNamed(statement)) return isNameless(type) ? kNoBlockType : type;
    const WordMeaning here = structure_.meaning(open_.back().type, statement.first.text);
    const bool meansElse = here.child != kNoBlockType || here.key != nullptr;
    return !meansElse && fits(type, statement) && (isNamed(statement) || statement.firstColumn)
               ? type
               : kNoBlockType;
  }

  // The End that closed a block before was one for its parent when what comes now may stand in a block
  // around.
  bool takeAsBlockOfParent(const Statement& statement) {
    for (std::size_t depth = open_.size() - 1; depth-- > 0;) {
      const BlockTypeId child = structure_.child(open_[depth].type, statement.first.text);
      if (child == kNoBlockType || !fits(child, statement)) continue;
      leave(depth + 1, statement, &open_[depth]);
      begin(child, statement);
      return true;
    }
    return false;
  }

  bool isNamed(const Statement& statement) const { return statement.behind < wordsEnd(statement); }
  bool isNameless(BlockTypeId type) const { return structure_.type(type).mostWords == 0; }

  static std::size_t wordsEnd(const Statement& statement) {
    const std::size_t behind = std::min(statement.behind, statement.line.size());
    return behind + TrimEnd(WithoutLineComment(statement.line.substr(behind))).size();
  }

  bool mayBegin(BlockTypeId type, const Statement& statement) const {
    return (!statement.sign || structure_.type(type).signAllowed) && open_.size() < kDeepestBlock;
  }

  bool fits(BlockTypeId type, const Statement& statement) const {
    if (!mayBegin(type, statement)) return false;
    WordReader words(wordsOf(statement), 0);
    std::size_t count = 0;
    while (!words.next().text.empty()) ++count;
    return count >= structure_.type(type).fewestWords && count <= structure_.type(type).mostWords;
  }

  static std::string_view wordsOf(const Statement& statement) {
    const std::size_t behind = std::min(statement.behind, statement.line.size());
    return statement.line.substr(behind, wordsEnd(statement) - behind);
  }

  void begin(BlockTypeId type, const Statement& statement) {
    BlockHeader block{.type = type,
                      .place = placeOf(statement.first),
                      .keyword = statement.first,
                      .sign = statement.sign,
                      .first = {},
                      .second = {},
                      .words = wordsOf(statement),
                      .wordsColumn = static_cast<std::uint32_t>(statement.behind) + 1,
                      .depth = static_cast<std::uint32_t>(open_.size()),
                      .lineOffset = offset_};
    WordReader words(block.words, block.wordsColumn);
    block.first = words.next();
    block.second = words.next();
    if (structure_.type(type).moduleFollows) block.type = structure_.withModule(type, block.first.text);
    if (open_.empty()) astray_ = false;
    open_.push_back(block);
    sink_.blockBegins(open_.back());
  }

  void takeKey(const Statement& statement, const KeyFacts* facts) {
    if (sink_.wantsKey(facts)) sink_.keyFound(keyLine(statement, facts));
  }

  KeyLine keyLine(const Statement& statement, const KeyFacts* facts) const {
    return {.place = placeOf(statement.first),
            .key = statement.first,
            .facts = facts,
            .block = open_.empty() ? nullptr : &open_.back(),
            .sign = statement.sign,
            .value = wordsOf(statement),
            .valueColumn = static_cast<std::uint32_t>(statement.behind) + 1};
  }

  // The blocks from this depth on end here without an End.
  void leave(std::size_t depth, const Statement& statement, const BlockHeader* parent) {
    const std::span<const BlockHeader> open(open_);
    sink_.faultFound({StructureFault::Kind::openBlock, placeOf(statement.first), lineText(statement),
                      open.subspan(depth), parent});
    endWithout(depth, {{line_, 1, offset_}, false, offset_, line_ - 1});
  }

  void endWithout(std::size_t depth, const BlockEnd& end) {
    while (open_.size() > depth) {
      sink_.blockEnds(open_.back(), end);
      open_.pop_back();
    }
  }

  void endOfText() {
    if (open_.empty()) return;
    const TextPlace place{line_, 1, text_.size()};
    sink_.faultFound({StructureFault::Kind::openBlock, place, {}, open_, nullptr});
    endWithout(0, {place, false, text_.size(), line_});
  }

  void fault(StructureFault::Kind kind, const Statement& statement) {
    sink_.faultFound({kind, placeOf(statement.first), lineText(statement), {}, nullptr, astray_});
    astray_ = true;
  }

  static std::string_view lineText(const Statement& statement) {
    const std::size_t begin = statement.first.column - 1;
    return TrimEnd(WithoutLineComment(statement.line.substr(begin)));
  }

  TextPlace placeOf(const TextWord& word) const { return {line_, word.column, offset_ + word.column - 1}; }

  // Behind the line's terminator. The statement may end before a comment.
  std::size_t offsetBehindLine(const Statement& statement) const {
    const std::size_t at = offset_ + statement.line.size();
    const std::size_t end = text_.find_first_of("\r\n", at);
    if (end == std::string_view::npos) return text_.size();
    return text_.substr(end).starts_with("\r\n") ? end + 2 : end + 1;
  }

  const GameStructure& structure_ = GameStructure::get();
  std::string_view text_;
  StructureSink& sink_;
  std::uint32_t line_ = 0;
  std::size_t offset_ = 0;
  bool hasMark_ = false;
  bool astray_ = false;  // nothing outside of blocks is as it should be until the next one begins
  std::vector<BlockHeader> open_;
  bool outside_ = false;  // a block that stands in no other has just ended
};

}  // namespace

TextWord WordReader::next() {
  std::size_t begin = 0;
  while (begin < rest_.size() && EndsWord(rest_[begin])) ++begin;
  std::size_t end = begin;
  const std::size_t quote =
      begin < rest_.size() && rest_[begin] == '"' ? rest_.find('"', begin + 1) : rest_.npos;
  if (quote != rest_.npos) end = quote + 1;
  while (end < rest_.size() && !EndsWord(rest_[end])) ++end;
  const TextWord word{rest_.substr(begin, end - begin), column_ + static_cast<std::uint32_t>(begin)};
  rest_.remove_prefix(end);
  column_ += static_cast<std::uint32_t>(end);
  return word;
}

bool ReadStructure(std::string_view text, StructureSink& sink) {
  return Reading(text, sink).run();
}

}  // namespace korvane
