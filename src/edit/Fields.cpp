// SPDX-License-Identifier: GPL-3.0-or-later
#include "edit/Fields.h"

#include <algorithm>
#include <array>
#include <charconv>

#include "ini/DisplayGrammar.h"
#include "ini/ParameterRows.h"

namespace korvane {

namespace {

using Keys = std::span<const std::string_view>;

constexpr auto kHealthKeys = std::to_array<std::string_view>({"MaxHealth", "InitialHealth"});
constexpr auto kBuildKeys =
    std::to_array<std::string_view>({"BuildCost", "BuildTime", "VisionRange", "ShroudClearingRange"});
constexpr auto kArmourKeys = std::to_array<std::string_view>({"Conditions", "Armor", "DamageFX"});

constexpr auto kObjectFields = std::to_array<KeyField>({
    {.key = "MaxHealth", .spaceFollows = false, .beside = kHealthKeys, .anyBlock = true},
    {.key = "InitialHealth", .spaceFollows = false, .beside = kHealthKeys, .anyBlock = true},
    {.key = "BuildCost", .spaceFollows = false, .beside = kBuildKeys},
    {.key = "BuildTime", .spaceFollows = false, .beside = kBuildKeys},
    {.key = "VisionRange", .spaceFollows = false, .beside = kBuildKeys},
    {.key = "ShroudClearingRange", .spaceFollows = false, .beside = kBuildKeys},
    {.key = "Armor", .firstOnly = true, .beside = kArmourKeys, .within = "ArmorSet"},
});

template <const auto& rows>
constexpr auto KeysOf() {
  constexpr auto kHasKey = [](const ParameterRow& row) { return !row.key.empty(); };
  std::array<std::string_view, static_cast<std::size_t>(std::ranges::count_if(rows, kHasKey))> keys{};
  std::size_t at = 0;
  for (const ParameterRow& row : rows) {
    if (kHasKey(row)) keys[at++] = row.key;
  }
  return keys;
}
constexpr auto kWeaponKeys = KeysOf<kWeaponRows>();
constexpr auto kCommandButtonKeys = KeysOf<kCommandButtonRows>();

struct TableRows {
  std::string_view kind;
  std::span<const ParameterRow> rows;
  Keys keys;
};
constexpr std::array kTables = {
    TableRows{"Weapon", kWeaponRows, kWeaponKeys},
    TableRows{"CommandButton", kCommandButtonRows, kCommandButtonKeys},
};

}  // namespace

std::optional<KeyField> ObjectField(std::string_view key) {
  const auto* found = std::ranges::find(kObjectFields, key, &KeyField::key);
  return found == kObjectFields.end() ? std::nullopt : std::optional(*found);
}

std::optional<KeyField> HandlingField(std::size_t number) {
  if (number >= kLocomotorKeys.size()) return std::nullopt;
  return KeyField{.key = kLocomotorKeys[number], .beside = kLocomotorKeys};
}

std::optional<KeyField> TableField(std::string_view kind, std::string_view caption) {
  const auto* table = std::ranges::find(kTables, kind, &TableRows::kind);
  if (table == kTables.end()) return std::nullopt;
  const auto row = std::ranges::find(table->rows, caption, &ParameterRow::caption);
  if (row == table->rows.end() || row->key.empty()) return std::nullopt;
  return KeyField{.key = row->key, .beside = table->keys};
}

std::optional<Field> RowField(std::string_view kind, std::string_view caption, std::size_t before) {
  if (kind == "Armor") return ArmourField{std::string(caption), before};
  if (kind == "CommandSet") {
    int slot = 0;
    std::from_chars(caption.data(), caption.data() + caption.size(), slot);
    return slot > 0 ? std::optional<Field>(SlotField{slot}) : std::nullopt;
  }
  const auto row = TableField(kind, caption);
  return row ? std::optional<Field>(*row) : std::nullopt;
}

}  // namespace korvane
