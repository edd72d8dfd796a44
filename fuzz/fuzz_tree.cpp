// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as an object file, the first byte choosing which one, held against a second version of the rules
// by which objects are placed.
#include <array>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "FuzzFolder.h"
#include "catalogue/ObjectTreeBuilder.h"
#include "support/SlowIni.h"

namespace {

using namespace korvane;

struct File {
  std::string name, prefix, tag;
};

const std::array<File, 8> kFiles = {{
    {"FactionUnit.ini", "FU", "FactionUnit.ini"},
    {"FactionBuilding.ini", "FB", "FactionBuilding.ini"},
    {"FactionProp.ini", "", ""},
    {"CivilianBuilding.ini", "CB", "CivilianBuilding.ini"},
    {"CivilianUnit.ini", "CU", "CivilianUnit.ini"},
    {"CivilianProp.ini", "CP", "CivilianProp.ini"},
    {"NatureProp.ini", "NP", "NatureProp.ini"},
    {"NatureUnit.ini", "", "NatureUnit.ini"},
}};

struct Placed {
  std::string parent, name, tag;
  bool operator==(const Placed&) const = default;
};

std::string SlowParent(const File& file, const std::string& name) {
  if (file.prefix.empty()) return file.name;
  if (file.prefix[0] == 'F') {
    for (const std::string faction : {"America", "China", "GLA", "CINE"}) {
      if (name.substr(0, faction.size()) == faction) return file.prefix + faction;
    }
    return file.prefix + "Other";
  }
  if (name.empty()) return "no group";
  const bool digit = name[0] >= '0' && name[0] <= '9';
  return file.prefix + (digit ? std::string("09") : name.substr(0, 1));
}

std::vector<Placed> SlowObjects(const File& file, const std::string& bytes) {
  std::vector<Placed> placed;
  for (const std::string& line : slow::Lines(bytes)) {
    if (line.substr(0, 6) != "Object") continue;
    const auto space = line.find(' ');
    if (space == std::string::npos) continue;
    const std::string rest = line.substr(space + 1);
    const std::string name = rest.substr(0, rest.find(' '));
    placed.push_back({SlowParent(file, name), name, file.tag});
  }
  return placed;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const FuzzFolder folder;
  if (size == 0) return 0;
  const File& file = kFiles[data[0] % kFiles.size()];
  const std::string bytes(reinterpret_cast<const char*>(data) + 1, size - 1);
  for (const File& each : kFiles) std::filesystem::remove(folder.native("Data/INI/Object/" + each.name));
  folder.write("Data/INI/Object/" + file.name, bytes);

  std::vector<Placed> placed;
  std::set<std::string> keys;
  ObjectTreeBuilder builder(
      [&](const TreeEntry& entry) {
        Require(keys.insert(std::string(entry.key)).second);
        if (entry.key.starts_with("Key")) {
          placed.push_back({std::string(entry.parentKey), std::string(entry.text), std::string(entry.tag)});
        }
        return true;
      },
      [] {});
  builder.BuildObjectTree(
      folder.path(), [](double) {}, [] {});
  Require(placed == SlowObjects(file, bytes));
  return 0;
}
