// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/ObjectTreeBuilder.h"

#include <array>

#include "files/NativePath.h"
#include "ini/DataFiles.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

// How the objects of a file are grouped below its category.
enum class Grouping { faction, letter, none };

struct ObjectFile {
  std::string_view name;
  std::string_view prefix;  // of its group keys
  Grouping grouping;
  std::string_view tag;  // of its object nodes
};

// In the order of reading, which is also the order of the reader's file indices.
constexpr std::array<ObjectFile, 8> kObjectFiles = {{
    {"FactionUnit.ini", "FU", Grouping::faction, "FactionUnit.ini"},
    {"FactionBuilding.ini", "FB", Grouping::faction, "FactionBuilding.ini"},
    {"FactionProp.ini", "", Grouping::none, ""},
    {"CivilianBuilding.ini", "CB", Grouping::letter, "CivilianBuilding.ini"},
    {"CivilianUnit.ini", "CU", Grouping::letter, "CivilianUnit.ini"},
    {"CivilianProp.ini", "CP", Grouping::letter, "CivilianProp.ini"},
    {"NatureProp.ini", "NP", Grouping::letter, "NatureProp.ini"},
    {"NatureUnit.ini", "", Grouping::none, "NatureUnit.ini"},
}};

constexpr std::array kFactions = {"America", "China", "GLA", "CINE"};
constexpr std::string_view kOther = "Other";
constexpr std::string_view kObjectHeader = "Object";

struct Category {
  std::string_view text;
  std::string_view key;
  std::string_view tag;     // of the category and its groups
  std::string_view prefix;  // of letter groups
};

constexpr Category kSeparator1{"", "Sep1", "", ""};
constexpr Category kSeparator2{"", "Sep2", "", ""};

// Top-level nodes; the groups of each follow it.
constexpr std::array kCategories = {
    Category{"Player Buildings", "FactionBuilding.ini", "FactionBuilding.ini", "FB"},
    Category{"Player Units", "FactionUnit.ini", "FactionUnit.ini", "FU"},
    Category{"Player Props", "FactionProp.ini", "FactionProp.ini", ""},
    kSeparator1,
    Category{"Civilian Buildings", "CivilianBuilding.ini", "", "CB"},
    Category{"Civilian Units", "CivilianUnit.ini", "", "CU"},
    Category{"Civilian Props", "CivilianProp.ini", "", "CP"},
    kSeparator2,
    Category{"Nature Props", "NatureProp.ini", "", "NP"},
    Category{"Nature Units", "NatureUnit.ini", "", ""},
};

struct Group {
  std::string_view text;
  std::string_view keyEnd;
};

constexpr std::array kFactionGroups = {Group{"America", "America"}, Group{"China", "China"},
                                       Group{"GLA", "GLA"}, Group{"Cinematic", "CINE"},
                                       Group{"Other", kOther}};
constexpr Group kDigits{"0 - 9", "09"};

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string Joined(std::string_view a, std::string_view b) {
  std::string text(a);
  text += b;
  return text;
}

std::string_view FactionOf(std::string_view name) {
  for (const std::string_view faction : kFactions) {
    if (TVItem::CheckText(name, faction)) return faction;
  }
  return kOther;
}

std::string LetterGroup(std::string_view prefix, std::string_view name) {
  if (name.empty()) return "no group";
  return Joined(prefix, IsDigit(name[0]) ? kDigits.keyEnd : name.substr(0, 1));
}

}  // namespace

ObjectTreeBuilder::ObjectTreeBuilder(AddNode add, Yield yieldPerLine)
    : add_(std::move(add)), TVItem1_(yieldPerLine) {
  TVItem1_.LoadingItem = [this](std::string_view, std::optional<int> index) {
    fileIndex_ = index.value_or(0);
  };
  TVItem1_.NewLine = [this, yieldPerLine](std::string_view line) {
    yieldPerLine();
    takeLine(line);
  };
}

void ObjectTreeBuilder::BuildObjectTree(std::string_view gameFolder, const Progress& progress,
                                        const Yield& yieldNow) {
  constexpr double kStep = 100.0 / kObjectFiles.size();
  TVItem1_.GamePath = gameFolder;
  addSkeleton();
  double percent = kStep;
  for (const ObjectFile& file : kObjectFiles) {
    if (!FileExists(ObjectFilePath(gameFolder, file.name))) continue;
    yieldNow();
    TVItem1_.AddTVItem(file.name);
    progress(percent);
    percent += kStep;
    yieldNow();
  }
}

void ObjectTreeBuilder::addSkeleton() {
  for (const Category& category : kCategories) {
    add_({category.key, category.text, {}, category.tag});
    addGroups(category.key, category.prefix);
  }
}

void ObjectTreeBuilder::addGroups(std::string_view category, std::string_view prefix) {
  if (prefix.empty()) return;
  const auto addGroup = [&](const Group& group, std::string_view tag) {
    const std::string key = Joined(prefix, group.keyEnd);
    add_({key, group.text, category, tag});
  };
  if (prefix.starts_with('F')) {
    for (const Group& group : kFactionGroups) addGroup(group, category);
    return;
  }
  addGroup(kDigits, {});
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const std::string_view text(&letter, 1);
    addGroup({text, text}, {});
  }
}

void ObjectTreeBuilder::takeLine(std::string_view line) {
  if (!TVItem::CheckText(line, kObjectHeader) || fileIndex_ == 0) return;
  const auto name = HeaderName(line);
  if (!name) return;
  const ObjectFile& file = kObjectFiles[static_cast<std::size_t>(fileIndex_) - 1];
  switch (file.grouping) {
    case Grouping::faction:
      place(*name, Joined(file.prefix, FactionOf(*name)), file.tag);
      break;
    case Grouping::letter:
      place(*name, LetterGroup(file.prefix, *name), file.tag);
      break;
    case Grouping::none:
      place(*name, file.name, file.tag);
      break;
  }
}

void ObjectTreeBuilder::place(std::string_view name, std::string_view parentKey, std::string_view tag) {
  ++NodeCounter_;
  const std::string key = "Key" + std::to_string(NodeCounter_);
  add_({key, name, parentKey, tag});
}

}  // namespace korvane
