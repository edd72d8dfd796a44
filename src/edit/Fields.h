// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>

namespace korvane {

// What a field of a window or a cell of a table shows, as lines of a block. Texts are the files' bytes.

// The block that is shown for a name: see FindShownBlock.
struct BlockName {
  std::string_view kind{};  // "Object", "Weapon" ...
  std::string name{};

  bool operator==(const BlockName&) const = default;
};

// The values of a key.
struct KeyField {
  std::string_view key{};
  bool spaceFollows = true;  // else the lines of longer keys that begin with it are shown too
  bool firstOnly = false;    // else the values of all its lines run together
  // Where a line of it is put when there is none: beside one of these keys, which stand in their usual order
  // and have it among them,
  std::span<const std::string_view> beside{};
  // in a block of this keyword; empty: in the shown block itself.
  std::string_view within{};
  bool anyBlock = false;  // in whatever block the key beside it is, and nowhere without one
};

// The name in one of an object's lines that name locomotors.
struct LocomotorField {
  std::size_t number = 0;  // from 0
  std::size_t count = 0;   // of such lines when they were shown
};

// A weapon in one of an object's weapon sets.
struct WeaponField {
  std::size_t set = 0;       // from 0
  std::string conditions{};  // the set's, when it was shown
  std::size_t number = 0;    // 0 primary, 1 secondary, 2 tertiary
};

// The button in a slot of a command set.
struct SlotField {
  int slot = 1;
};

// The percentage of a damage type.
struct ArmourField {
  std::string type{};
  std::size_t number = 0;  // from 0, of the lines of this type
};

using Field = std::variant<KeyField, LocomotorField, WeaponField, SlotField, ArmourField>;

// The row of a table of values of this kind; `before`: how many rows above it have the same caption. Nothing
// where the row is none of a line.
std::optional<Field> RowField(std::string_view kind, std::string_view caption, std::size_t before);

// The fields that show an object's key; the handling fields by their number, from 0; the rows of the tables
// of weapons and command buttons by their caption. Nothing where there is no such field.
std::optional<KeyField> ObjectField(std::string_view key);
std::optional<KeyField> HandlingField(std::size_t number);
std::optional<KeyField> TableField(std::string_view kind, std::string_view caption);

}  // namespace korvane
