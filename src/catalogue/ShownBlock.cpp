// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ShownBlock.h"

#include "catalogue/FoldedText.h"
#include "catalogue/StructureReader.h"
#include "ini/Blocks.h"
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

// Where the game's idea of the block's end differs from the one that is shown.
void CompareEnds(std::string_view bytesFromHeader, ShownBlock& block) {
  const std::size_t inGame = LastLineInGame(bytesFromHeader);
  const std::size_t shown = block.lastLine - block.line + 1;
  if (inGame > shown) block.hiddenLines = inGame - shown;
  if (inGame != 0 && inGame < shown) block.strangeLines = shown - inGame;
}

bool TakeOwnHeader(std::string_view line, std::string_view kind, std::string_view name, ShownBlock& block) {
  WordReader words(line, 1);
  const std::string_view found = words.next().text;
  const bool reskin = EqualFolded(found, std::string(kind).append(kReskin));
  if ((!reskin && !EqualFolded(found, kind)) || !EqualFolded(words.next().text, name)) return false;
  block.ownKind = found;
  if (reskin) block.ownBase = words.next().text;
  return true;
}

void FindOwnHeader(std::string_view bytes, std::string_view kind, std::string_view name, ShownBlock& block) {
  const char first = FoldedByte(kind[0]);
  ForEachLine(bytes, [&](std::string_view line) {
    const bool own = !line.empty() && FoldedByte(line[0]) == first && TakeOwnHeader(line, kind, name, block);
    if (own) block.ownLine = LineInEditor(bytes, static_cast<std::size_t>(line.data() - bytes.data()));
    return !own;
  });
}

}  // namespace

ShownBlock FindShownBlock(std::string_view bytes, std::string_view kind, std::string_view name) {
  ShownBlock shown;
  const std::string lowerBegin = ToLowerAscii(std::string(kind).append(" ").append(name));
  if (const auto block = FindBlock(bytes, lowerBegin)) {
    shown.line = block->firstLine;
    shown.lastLine = block->lastLine;
    shown.name = WordReader(block->header.line.substr(kind.size()), 1).next().text;
    CompareEnds(bytes.substr(block->offset), shown);
  }
  FindOwnHeader(bytes, kind, name, shown);
  return shown;
}

}  // namespace korvane
