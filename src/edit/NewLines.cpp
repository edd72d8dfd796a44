// SPDX-License-Identifier: GPL-3.0-or-later
#include "edit/NewLines.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "catalogue/FoldedText.h"

namespace korvane {

namespace {

constexpr std::size_t kShownBlock = 0;  // in BlockText::inner
constexpr std::size_t kIndentation = 2;
constexpr std::array<std::string_view, 3> kWeaponSlots = {"PRIMARY", "SECONDARY", "TERTIARY"};

NewLine NoPlace(std::string reason, int line = 0) {
  return {.refusal = {std::move(reason), line}};
}

NewLine StandsAlready(const BlockText& block, std::size_t line) {
  return NoPlace("its key stands in a line that is not written as it is shown", block.lines[line].number);
}

// A place in an inner block: behind a line, indented as the keys there.
struct Place {
  std::size_t behind = kNowhere;
  std::string indentation{};
};

std::string Indentation(std::string_view line) {
  const std::size_t first = line.find_first_not_of(' ');
  const bool isPlain = first != std::string_view::npos && line[first] != '\t';
  return std::string(isPlain ? first : 0, ' ');
}

std::size_t LineNumbered(const BlockText& block, int number) {
  const auto found = std::ranges::find(block.lines, number, &BlockLine::number);
  return found == block.lines.end() ? kNowhere : static_cast<std::size_t>(found - block.lines.begin());
}

Place Behind(const BlockText& block, std::size_t keyLine) {
  return {keyLine, Indentation(block.lines[keyLine].text)};
}
Place Before(const BlockText& block, std::size_t keyLine) {
  return {keyLine - 1, Indentation(block.lines[keyLine].text)};
}
Place BehindHeader(const BlockText& block, std::size_t inner) {
  const std::size_t header = LineNumbered(block, block.inner[inner].firstLine);
  if (header == kNowhere) return {};
  return {header, Indentation(block.lines[header].text).append(kIndentation, ' ')};
}

// The last line of the inner block that holds a key which fits.
template <typename Fits>
std::size_t LastKeyLine(const BlockText& block, std::size_t inner, Fits fits) {
  for (std::size_t i = block.lines.size(); i-- > 0;) {
    if (block.lines[i].inner == inner && fits(block.lines[i].key)) return i;
  }
  return kNowhere;
}

std::size_t LastLineOf(const BlockText& block, std::size_t inner, std::string_view key) {
  return LastKeyLine(block, inner, [key](std::string_view each) { return EqualFolded(each, key); });
}

// Beside the nearest of the keys that usually stand beside this one.
Place PlaceBeside(const BlockText& block, std::size_t inner, const KeyField& field) {
  const auto own = std::ranges::find(field.beside, field.key);
  for (auto key = own; key != field.beside.begin();) {
    if (const std::size_t line = LastLineOf(block, inner, *--key); line != kNowhere)
      return Behind(block, line);
  }
  for (auto key = own; key != field.beside.end(); ++key) {
    if (const std::size_t line = block.lineOfKey(inner, *key); line != kNowhere) return Before(block, line);
  }
  return {};
}

Place PlaceIn(const BlockText& block, std::size_t inner, const KeyField& field) {
  if (const Place beside = PlaceBeside(block, inner, field); beside.behind != kNowhere) return beside;
  const std::size_t last = LastKeyLine(block, inner, [](std::string_view key) { return !key.empty(); });
  return last == kNowhere ? BehindHeader(block, inner) : Behind(block, last);
}

// The inner block in which a line of the field belongs; kNowhere.
std::size_t InnerBlockFor(const BlockText& block, const KeyField& field) {
  for (std::size_t i = 0; i < block.inner.size(); ++i) {
    const bool isThere = field.within.empty() || EqualFolded(block.inner[i].keyword, field.within);
    if (field.anyBlock ? PlaceBeside(block, i, field).behind != kNowhere : isThere) return i;
  }
  return kNowhere;
}

NewLine LineAt(const Place& place, std::string_view key, std::string_view value) {
  if (place.behind == kNowhere) return NoPlace("its block is not written as the game reads it");
  return {place.behind, std::string(place.indentation).append(key).append(" = ").append(value), {}};
}

NewLine Make(const BlockText& block, const KeyField& field, std::string_view value) {
  const std::size_t inner = InnerBlockFor(block, field);
  if (inner == kNowhere && field.anyBlock)
    return NoPlace("the object has no line beside which it belongs", block.lines.front().number);
  if (inner == kNowhere)
    return NoPlace("the object has no " + std::string(field.within), block.lines.front().number);
  const std::size_t other = block.lineOfKey(inner, field.key);
  if (other != kNowhere) return StandsAlready(block, other);
  return LineAt(PlaceIn(block, inner, field), field.key, value);
}

NewLine Make(const BlockText&, const LocomotorField&, std::string_view) {
  return NoPlace("the object names no locomotor");
}

int NumberOf(std::string_view key) {
  int number = 0;
  const auto [behind, error] = std::from_chars(key.data(), key.data() + key.size(), number);
  return error == std::errc() && behind == key.data() + key.size() ? number : 0;
}

// The slots stand in the order of their numbers.
NewLine Make(const BlockText& block, const SlotField& field, std::string_view value) {
  std::size_t before = kNowhere;
  std::size_t after = kNowhere;
  for (std::size_t i = 0; i < block.lines.size(); ++i) {
    const int slot = block.lines[i].inner == kShownBlock ? NumberOf(block.lines[i].key) : 0;
    if (slot == field.slot) return StandsAlready(block, i);
    if (slot > 0 && slot < field.slot) before = i;
    if (slot > field.slot && after == kNowhere) after = i;
  }
  const Place place = before != kNowhere  ? Behind(block, before)
                      : after != kNowhere ? Before(block, after)
                                          : BehindHeader(block, kShownBlock);
  return LineAt(place, std::to_string(field.slot), value);
}

bool NamesSlot(std::string_view line, std::string_view slot) {
  const std::size_t at = line.substr(0, line.find(';')).find(slot);
  return at != std::string_view::npos;
}

NewLine Make(const BlockText& block, const WeaponField& field, std::string_view value) {
  const WeaponLines set = FindWeaponLines(block, field);
  if (set.refusal) return {.refusal = set.refusal};
  const BlockLine& header = block.lines[set.lines.front()];
  if (set.lines.size() != field.number + 1) return NoPlace("the weapon before it is not set", header.number);
  const std::string_view slot = kWeaponSlots.at(field.number);
  for (const std::size_t line : set.lines) {
    if (NamesSlot(block.lines[line].text, slot))
      return NoPlace("its weapon set has a " + std::string(slot) + " weapon already",
                     block.lines[line].number);
  }
  const auto inner = std::ranges::find(block.inner, header.number, &InnerBlock::firstLine);
  if (inner == block.inner.end()) return NoPlace("the game reads no weapon set there", header.number);
  const auto index = static_cast<std::size_t>(inner - block.inner.begin());
  const KeyField weapon{.key = "Weapon"};
  Place place = set.lines.size() > 1 ? Behind(block, set.lines.back()) : PlaceIn(block, index, weapon);
  return LineAt(place, "Weapon", std::string(slot).append(" ").append(value));
}

NewLine Make(const BlockText&, const ArmourField&, std::string_view) {
  return NoPlace("the armour has no such line any more");
}

}  // namespace

NewLine MakeNewLine(const BlockText& block, const Field& field, std::string_view value) {
  const int header = block.lines.front().number;
  if (block.inner.empty()) return NoPlace("the game reads no such block there", header);
  if (block.hasMore)
    return NoPlace("its block goes on behind the \"End\" in the first column", block.lines.back().number);
  NewLine line = std::visit([&](const auto& each) { return Make(block, each, value); }, field);
  const bool isInside =
      line.behind + 1 < block.lines.size() && block.lines[line.behind].number < block.inner.front().lastLine;
  if (!line.refusal && !isInside) return NoPlace("its block has no \"End\" of its own", header);
  return line;
}

}  // namespace korvane
