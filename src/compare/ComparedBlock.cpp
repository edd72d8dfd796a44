// SPDX-License-Identifier: GPL-3.0-or-later
#include "compare/ComparedBlock.h"

#include <algorithm>
#include <span>
#include <unordered_map>
#include <utility>

#include "catalogue/FoldedText.h"
#include "catalogue/StructureReader.h"
#include "compare/Pairing.h"

namespace korvane {

std::string Joined(WordReader words) {
  std::string joined;
  for (TextWord word = words.next(); !word.text.empty(); word = words.next()) {
    if (!joined.empty()) joined += ' ';
    joined += word.text;
  }
  return joined;
}

namespace {

using Key = ComparedBlock::Key;

std::string Folded(std::string_view text) {
  std::string folded(text);
  std::ranges::transform(folded, folded.begin(), FoldedByte);
  return folded;
}

class BlockSink : public StructureSink {
 public:
  explicit BlockSink(std::uint32_t firstLine) : lineOffset_(firstLine - 1) {}

  ComparedBlock take() { return std::move(root_); }

  void blockBegins(const BlockHeader& block) override {
    ComparedBlock& made = open_.empty() ? root_ : open_.back()->blocks.emplace_back();
    made.line = block.place.line + lineOffset_;
    describe(block, made);
    open_.push_back(&made);
  }

  void keyFound(const KeyLine& key) override {
    // A line outside of all blocks is an item of one key.
    ComparedBlock& block = open_.empty() ? root_ : *open_.back();
    block.keys.push_back({key.key.text, key.value, key.place.line + lineOffset_});
  }

  void blockEnds(const BlockHeader& /*block*/, const BlockEnd& /*end*/) override { open_.pop_back(); }

 private:
  // A module goes by its tag and a named item by its name; any other block by all of its header.
  void describe(const BlockHeader& block, ComparedBlock& made) const {
    const BlockType& type = structure_.type(block.type);
    WordReader words(block.words, block.wordsColumn);
    made.identity = block.keyword.text;
    if (block.depth == 0) {
      if (type.kind != kNoKind && structure_.kinds()[type.kind].names > 0) words.next();
      made.value = Joined(words);
    } else if (type.moduleFollows && !block.second.text.empty()) {
      made.value = words.next().text;
      made.identity += ' ' + Joined(words);
    } else if (!block.words.empty()) {
      made.identity += ' ' + Joined(words);
    }
  }

  const GameStructure& structure_ = GameStructure::get();
  std::uint32_t lineOffset_;
  ComparedBlock root_;
  std::vector<ComparedBlock*> open_;
};

// Things of one name in the two blocks.
template <typename Thing>
struct Group {
  std::vector<const Thing*> former;
  std::vector<const Thing*> present;
};

template <typename Thing, typename NameOf>
std::vector<Group<Thing>> GroupsOf(std::span<const Thing> former, std::span<const Thing> present,
                                   NameOf nameOf) {
  std::vector<Group<Thing>> groups;
  std::unordered_map<std::string, std::size_t> places;
  const auto groupOf = [&](const Thing& thing) -> Group<Thing>& {
    const std::size_t place = places.try_emplace(Folded(nameOf(thing)), groups.size()).first->second;
    if (place == groups.size()) groups.emplace_back();
    return groups[place];
  };
  for (const Thing& each : present) groupOf(each).present.push_back(&each);
  for (const Thing& each : former) groupOf(each).former.push_back(&each);
  return groups;
}

bool SameWords(std::string_view a, std::string_view b) {
  if (a == b) return true;
  WordReader wordsOfA(a, 1);
  WordReader wordsOfB(b, 1);
  for (;;) {
    const std::string_view word = wordsOfA.next().text;
    if (word != wordsOfB.next().text) return false;
    if (word.empty()) return true;
  }
}

bool SaysSame(const Key& a, const Key& b) {
  return SameWords(a.words, b.words) && EqualFolded(a.key, b.key);
}

// The same in the same order.
bool SaysSameInOrder(const ComparedBlock& a, const ComparedBlock& b) {
  return a.value == b.value && EqualFolded(a.identity, b.identity) &&
         std::ranges::equal(a.keys, b.keys, SaysSame) &&
         std::ranges::equal(a.blocks, b.blocks, SaysSameInOrder);
}

// Without the keys at the front and the end that are the same in both: most of them in most blocks.
std::pair<std::span<const Key>, std::span<const Key>> WithoutSame(std::span<const Key> a,
                                                                  std::span<const Key> b) {
  while (!a.empty() && !b.empty() && SaysSame(a.front(), b.front())) {
    a = a.subspan(1);
    b = b.subspan(1);
  }
  while (!a.empty() && !b.empty() && SaysSame(a.back(), b.back())) {
    a = a.first(a.size() - 1);
    b = b.first(b.size() - 1);
  }
  return {a, b};
}

// Texts of a block that say the same have the same lines.
std::string Canonical(const ComparedBlock& block) {
  std::vector<std::string> lines;
  for (const Key& key : block.keys) lines.push_back(Folded(key.key) + '=' + key.value());
  for (const ComparedBlock& inner : block.blocks)
    lines.push_back(Folded(inner.identity) + '{' + Canonical(inner) + '}');
  std::ranges::sort(lines);
  std::string text = block.value;
  for (const std::string& line : lines) (text += '\n') += line;
  return text;
}

std::string FirstKey(const ComparedBlock& block) {
  return block.keys.empty() ? std::string()
                            : Folded(block.keys.front().key) + '=' + block.keys.front().value();
}

std::string FirstWord(const Key& key) {
  return std::string(WordReader(key.words, 1).next().text);
}

class BlockComparing {
 public:
  std::vector<KeyChange> run(const ComparedBlock& former, const ComparedBlock& present) {
    if (former.value != present.value)
      changes_.push_back({present.identity, former.value, present.value, former.line, present.line});
    compareInside(former, present, {});
    return std::move(changes_);
  }

 private:
  void compareInside(const ComparedBlock& former, const ComparedBlock& present, const std::string& path) {
    const auto [formerKeys, presentKeys] = WithoutSame(former.keys, present.keys);
    for (auto& group : GroupsOf(formerKeys, presentKeys, [](const Key& key) { return key.key; }))
      compareKeys(group, path);
    if (std::ranges::equal(former.blocks, present.blocks, SaysSameInOrder)) return;
    for (auto& group : GroupsOf(std::span(former.blocks), std::span(present.blocks),
                                [](const ComparedBlock& block) { return block.identity; }))
      compareGroup(group, path);
  }

  void compareKeys(Group<Key>& group, const std::string& path) {
    Pairs<Key> pairs;
    PairBy(
        group.former, group.present, [](const Key& key) { return key.value(); }, pairs);
    pairs.clear();  // those are equal
    PairBy(group.former, group.present, FirstWord, pairs);
    PairRest(group.former, group.present, pairs);
    for (const auto& [before, now] : pairs) {
      const std::string_view key = (now != nullptr ? now : before)->key;
      add(path + std::string(key), before, now);
    }
  }

  void add(std::string path, const Key* before, const Key* now) {
    KeyChange change{.key = std::move(path), .former = {}, .present = {}};
    if (before != nullptr) {
      change.former = before->value();
      change.formerLine = before->line;
    }
    if (now != nullptr) {
      change.present = now->value();
      change.presentLine = now->line;
    }
    changes_.push_back(std::move(change));
  }

  void compareGroup(Group<ComparedBlock>& group, const std::string& path) {
    const std::vector<const ComparedBlock*> former = group.former;
    const std::vector<const ComparedBlock*> present = group.present;
    Pairs<ComparedBlock> pairs;
    if (former.size() > 1 || present.size() > 1) {
      PairBy(group.former, group.present, Canonical, pairs);
      pairs.clear();
      PairBy(group.former, group.present, FirstKey, pairs);
    }
    PairRest(group.former, group.present, pairs);
    for (const auto& [before, now] : pairs) {
      const auto& among = now != nullptr ? present : former;
      compareBlock(before, now, path + numbered(now != nullptr ? *now : *before, among));
    }
  }

  // "WeaponSet (2)" where there are several.
  static std::string numbered(const ComparedBlock& block, const std::vector<const ComparedBlock*>& among) {
    if (among.size() < 2) return block.identity;
    const auto place = std::ranges::find(among, &block) - among.begin();
    return block.identity + " (" + std::to_string(place + 1) + ')';
  }

  void compareBlock(const ComparedBlock* before, const ComparedBlock* now, const std::string& path) {
    static const ComparedBlock nothing;
    if (before == nullptr || now == nullptr || before->value != now->value) {
      const Key header = before == nullptr ? Key() : Key{{}, before->value, before->line};
      const Key headerNow = now == nullptr ? Key() : Key{{}, now->value, now->line};
      add(path, before == nullptr ? nullptr : &header, now == nullptr ? nullptr : &headerNow);
    }
    compareInside(before == nullptr ? nothing : *before, now == nullptr ? nothing : *now, path + " / ");
  }

  std::vector<KeyChange> changes_;
};

}  // namespace

std::string Key::value() const {
  return Joined(WordReader(words, 1));
}

ComparedBlock ReadBlock(std::string_view itemText, std::uint32_t firstLine) {
  BlockSink sink(firstLine);
  ReadStructure(itemText, sink);
  return sink.take();
}

std::vector<KeyChange> CompareBlocks(const ComparedBlock& former, const ComparedBlock& present) {
  return BlockComparing().run(former, present);
}

std::optional<std::string> ValueOf(const ComparedBlock& block, std::string_view key) {
  const auto found =
      std::ranges::find_if(block.keys, [&](const Key& each) { return EqualFolded(each.key, key); });
  return found == block.keys.end() ? std::nullopt : std::optional(found->value());
}

}  // namespace korvane
