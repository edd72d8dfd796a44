// SPDX-License-Identifier: GPL-3.0-or-later
// Values typed into fields as edits of any file: the first byte chooses the kind of block, each further line
// but the last ones an edit (a letter for the field, then the value), an empty line ends them, the rest is
// the file.
#include <array>
#include <cstdint>
#include <cstdio>

#include "FuzzFolder.h"
#include "support/AgainstSlowEdits.h"

namespace {

using namespace korvane;

constexpr std::size_t kMostEdits = 4;
constexpr std::array<std::string_view, 6> kKinds = {"Object", "Locomotor",     "Weapon",
                                                    "Armor",  "CommandButton", "CommandSet"};
constexpr std::array<std::string_view, 7> kObjectKeys = {
    "BuildCost", "BuildTime", "VisionRange", "ShroudClearingRange", "MaxHealth", "InitialHealth", "Armor"};

Field FieldOfObject(std::size_t number) {
  if (number < kObjectKeys.size()) return ObjectField(kObjectKeys[number]).value();
  number -= kObjectKeys.size();
  const std::size_t half = number / 2;
  if (number % 2 == 0) return LocomotorField{half % 3, 1 + half % 3};
  return WeaponField{half % 2, half % 5 < 3 ? "None" : "", half % 3};
}

Field FieldOf(std::string_view kind, std::size_t number) {
  if (kind == "Object") return FieldOfObject(number);
  if (kind == "Locomotor") return HandlingField(number % 9).value();
  if (kind == "Weapon") return TableField(kind, number % 2 == 0 ? "Weapon Damage" : "Damage Type").value();
  if (kind == "Armor") return ArmourField{number % 2 == 0 ? "FLAME" : "LASER", number / 2 % 3};
  if (kind == "CommandSet") return SlotField{static_cast<int>(1 + number % 12)};
  return TableField(kind, "Command Type").value();
}

std::string_view TakeLine(std::string_view& input) {
  const std::string_view line = input.substr(0, input.find('\n'));
  input.remove_prefix(std::min(line.size() + 1, input.size()));
  return line;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  if (input.empty()) return 0;
  const BlockName name{kKinds[static_cast<unsigned char>(input[0]) % kKinds.size()], "Tank"};
  input.remove_prefix(1);
  std::vector<FieldEdit> edits;
  while (edits.size() < kMostEdits) {
    const std::string_view line = TakeLine(input);
    if (line.empty()) break;
    const auto number = static_cast<std::size_t>(static_cast<unsigned char>(line[0]) - 'a') % 32;
    edits.push_back({FieldOf(name.kind, number), std::string(line.substr(1))});
  }
  if (edits.empty()) return 0;
  const std::string difference = DifferenceFromSlowEdits(std::string(input), name, edits);
  if (!difference.empty()) std::fprintf(stderr, "%s\n", difference.c_str());
  Require(difference.empty());
  return 0;
}
