// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ShownBlock.h"

#include "catalogue/FoldedText.h"
#include "catalogue/StructureReader.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

constexpr std::string_view kReskin = "Reskin";  // behind the kind that is borrowed from

// The last line, counted from the text's first, of the first block of the game's structure.
class FirstBlockEnd : public StructureSink {
 public:
  void blockEnds(const BlockHeader& block, const BlockEnd& end) override {
    if (block.depth != 0 || done_) return;
    done_ = true;
    if (end.closed) lastLine_ = end.lastLine;
  }
  bool goesOn() override { return !done_; }
  std::size_t lastLine() const { return lastLine_; }  // 0 when it has no End

 private:
  bool done_ = false;
  std::size_t lastLine_ = 0;
};

std::size_t LastLineInGame(std::string_view bytesFromHeader) {
  FirstBlockEnd end;
  ReadStructure(bytesFromHeader, end);
  return end.lastLine();
}

std::size_t LoneLfs(std::string_view line) {
  std::size_t count = 0;
  for (std::size_t at = line.find('\n'); at != std::string_view::npos; at = line.find('\n', at + 1)) ++count;
  return count;
}

class Search {
 public:
  Search(std::string_view bytes, std::string_view kind, std::string_view name)
      : bytes_(bytes), kind_(kind), name_(name), lowerHeader_(ToLowerAscii(kind)) {
    lowerHeader_ += ' ';
    lowerHeader_ += ToLowerAscii(name);
  }

  ShownBlock run();

 private:
  void compareEnds(std::size_t lastOfFile);
  void takeLine(std::string_view line, std::size_t number);
  void takeHeader(std::string_view line, std::size_t number);
  void takeOwn(std::string_view line, std::size_t number);

  std::string_view bytes_;
  std::string_view kind_;
  std::string_view name_;
  std::string lowerHeader_;
  std::string_view header_;
  ShownBlock block_;
};

ShownBlock Search::run() {
  std::size_t number = 1;
  ForEachLine(bytes_, [&](std::string_view line) {
    takeLine(line, number);
    number += 1 + LoneLfs(line);
  });
  if (block_.line != 0) compareEnds(number - 1);
  return block_;
}

void Search::compareEnds(std::size_t lastOfFile) {
  if (block_.lastLine == 0) block_.lastLine = lastOfFile;
  const auto offset = static_cast<std::size_t>(header_.data() - bytes_.data());
  const std::size_t inGame = LastLineInGame(bytes_.substr(offset));
  const std::size_t shown = block_.lastLine - block_.line + 1;
  if (inGame > shown) block_.hiddenLines = inGame - shown;
  if (inGame != 0 && inGame < shown) block_.strangeLines = shown - inGame;
}

void Search::takeLine(std::string_view line, std::size_t number) {
  if (line.empty() || line[0] == ' ') return;
  const char first = FoldedByte(line[0]);
  if (first == 'e' && block_.line != 0 && block_.lastLine == 0 && BeginsWithIgnoringCase(line, "end"))
    block_.lastLine = number;
  if (first == lowerHeader_[0]) takeHeader(line, number);
}

void Search::takeHeader(std::string_view line, std::size_t number) {
  if (block_.line == 0 && BeginsWithIgnoringCase(line, lowerHeader_)) {
    block_.line = number;
    block_.name = WordReader(line.substr(kind_.size()), 1).next().text;
    header_ = line;
  }
  if (block_.ownLine == 0) takeOwn(line, number);
}

void Search::takeOwn(std::string_view line, std::size_t number) {
  WordReader words(line, 1);
  const std::string_view kind = words.next().text;
  const bool reskin = EqualFolded(kind, std::string(kind_).append(kReskin));
  if ((!reskin && !EqualFolded(kind, kind_)) || !EqualFolded(words.next().text, name_)) return;
  block_.ownLine = number;
  block_.ownKind = kind;
  if (reskin) block_.ownBase = words.next().text;
}

}  // namespace

ShownBlock FindShownBlock(std::string_view bytes, std::string_view kind, std::string_view name) {
  return Search(bytes, kind, name).run();
}

}  // namespace korvane
