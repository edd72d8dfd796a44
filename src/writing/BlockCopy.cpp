// SPDX-License-Identifier: GPL-3.0-or-later
#include "writing/BlockCopy.h"

#include <algorithm>
#include <memory>

#include "catalogue/CatalogueFile.h"
#include "catalogue/FoldedText.h"
#include "catalogue/StructureReader.h"

namespace korvane {

namespace {

constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

const Kind* KindOf(const TextBlock& block) {
  const KindId kind = GameStructure::get().type(block.type).kind;
  return kind == kNoKind ? nullptr : &GameStructure::get().kinds()[kind];
}

bool BeginsFolded(std::string_view text, std::string_view beginning) {
  return EqualFolded(text.substr(0, beginning.size()), beginning);
}

bool ContainsFolded(std::string_view text, std::string_view part) {
  return std::search(text.begin(), text.end(), part.begin(), part.end(),
                     [](char a, char b) { return FoldedByte(a) == FoldedByte(b); }) != text.end();
}

bool IsWord(std::string_view name) {
  const bool plain = std::ranges::all_of(name, [](char byte) {
    return byte > ' ' && byte < '\x7F' && byte != '=' && byte != ';' && byte != '"';
  });
  return plain && name.find("//") == std::string_view::npos;
}

std::string HeaderOf(const TextBlock& block) {
  return block.keyword + ' ' + std::string(NameOf(block));
}

std::string InLine(const TextBlock& block) {
  return HeaderOf(block) + " in line " + std::to_string(block.firstLine);
}

// Why the name and a header of the same kind do not go together.
std::string WhyNotBeside(const NewName& name, const TextBlock& other) {
  if (!EqualFolded(other.keyword, name.copied.keyword)) return {};
  if (BeginsFolded(NameOf(other), name.name)) {
    return "This is the beginning of " + InLine(other) + ": one would be taken for the other.";
  }
  if (other.firstLine > name.copied.firstLine && BeginsFolded(name.name, NameOf(other))) {
    return "This begins like " + InLine(other) +
           ", before which the copy would stand: it would be taken for it.";
  }
  return {};
}

std::string WhyNotInText(const NewName& name, SpaceId space) {
  for (const TextBlock& block : name.blocks) {
    const Kind* kind = block.depth == 0 ? KindOf(block) : nullptr;
    if (kind == nullptr || kind->names == 0) continue;
    if (kind->space == space && EqualFolded(NameOf(block), name.name))
      return "There is " + InLine(block) + '.';
    if (std::string reason = WhyNotBeside(name, block); !reason.empty()) return reason;
  }
  return {};
}

std::string WhyNotInOtherFiles(const NewName& name, SpaceId space) {
  if (name.catalogue == nullptr || space == kNoSpace) return {};
  const CatalogueFile* own = name.path.empty() ? nullptr : name.catalogue->file(name.path);
  for (const FoundDefinition& found : name.catalogue->definitions(space, name.name)) {
    if (found.file == own) continue;
    const std::string kind(GameStructure::get().kinds()[found.kind].name);
    return "There is " + kind + ' ' + std::string(found.name) + " in " + found.file->source().path +
           ", line " + std::to_string(found.line) + '.';
  }
  return {};
}

void AddOnce(std::vector<std::string>& names, std::string_view name) {
  if (std::ranges::find(names, name) == names.end()) names.emplace_back(name);
}

// Notes module tags, and words in which the block's name stands.
class OwnNameFinder : public StructureSink {
 public:
  explicit OwnNameFinder(std::string_view name) : name_(name) {}

  void blockBegins(const BlockHeader& block) override {
    if (block.depth == 0) return;
    const bool module = GameStructure::get().type(block.type).moduleFollows;
    if (module && !block.second.text.empty()) AddOnce(found.moduleTags, block.second.text);
    if (!module) note({block.words, block.wordsColumn});
  }
  void keyFound(const KeyLine& key) override { note(key.words()); }

  OwnNames found;

 private:
  void note(WordReader words) {
    for (TextWord word = words.next(); !word.text.empty(); word = words.next()) {
      if (ContainsFolded(word.text, name_)) AddOnce(found.names, word.text);
    }
  }

  std::string_view name_;
};

// The items that are named in the block and nowhere else.
void AddNamesOfItsOwn(OwnNames& own, std::string_view block, const Catalogue& catalogue) {
  const auto read = CatalogueFile::read({}, block);
  for (CatalogueFile::NameId id = 0; id < read->nameCount(); ++id) {
    const std::size_t here = read->usesOf(id).size();
    const SpaceId space = read->space(id);
    const std::string_view name = read->name(id);
    const bool only = here > 0 && catalogue.defines(space, name) && catalogue.countUses(space, name) <= here;
    if (only) AddOnce(own.names, name);
  }
}

std::string_view TextOf(std::string_view text, const TextBlock& block) {
  const std::size_t begin = std::min(block.begin, text.size());
  return text.substr(begin, std::min(block.behind, text.size()) - begin);
}

}  // namespace

std::string WhyNoCopy(const TextBlock& block) {
  const Kind* kind = KindOf(block);
  if (kind == nullptr || kind->names == 0) return "A block " + block.keyword + " has no name.";
  if (!block.closed) return InLine(block) + " has no End.";
  return {};
}

std::string_view NameOf(const TextBlock& block) {
  return WordReader(block.words, 1).next().text;
}

std::string WhyNotNamed(const NewName& name) {
  if (name.name.empty()) return "Type a name.";
  if (!IsWord(name.name)) return "A name has no blanks, and none of the signs = ; \" and //.";
  const Kind* kind = KindOf(name.copied);
  const SpaceId space = kind == nullptr ? kNoSpace : kind->space;
  std::string reason = WhyNotInText(name, space);
  return reason.empty() ? WhyNotInOtherFiles(name, space) : reason;
}

BlockCopy CopyOf(std::string_view text, const TextBlock& block, std::string_view name) {
  std::string_view original = TextOf(text, block);
  const std::size_t mark = original.starts_with(kByteOrderMark) ? kByteOrderMark.size() : 0;
  original.remove_prefix(mark);  // it belongs to the text
  const std::string_view old = NameOf(block);
  const bool endsLine = original.ends_with('\n') || original.ends_with('\r');
  const std::size_t behindKeyword = std::min(block.column - 1 - mark + block.keyword.size(), original.size());
  const std::size_t at = original.find(old, behindKeyword);
  BlockCopy copy;
  copy.text = endsLine ? kLineEnd : std::string(kLineEnd) + std::string(kLineEnd);
  copy.nameAt = copy.text.size() + at;
  copy.text.append(original.substr(0, at)).append(name).append(original.substr(at + old.size()));
  return copy;
}

OwnNames OwnNamesIn(std::string_view text, const TextBlock& block, const Catalogue* catalogue) {
  const std::string_view own = TextOf(text, block);
  OwnNameFinder finder(NameOf(block));
  ReadStructure(own, finder);
  if (catalogue != nullptr) AddNamesOfItsOwn(finder.found, own, *catalogue);
  return std::move(finder.found);
}

}  // namespace korvane
