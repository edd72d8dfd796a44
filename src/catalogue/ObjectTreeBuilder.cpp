// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/ObjectTreeBuilder.h"

#include <algorithm>
#include <array>

#include "catalogue/OtherFiles.h"
#include "files/NativePath.h"
#include "ini/Blocks.h"
#include "ini/DataFiles.h"
#include "ini/IniText.h"

namespace korvane {

// How the objects of a file are grouped below its category.
enum class Grouping { none, faction, letter };

struct Category {
  std::string_view text;
  std::string_view key{};        // the name of the object file
  std::string_view tag{};        // of the category and its groups
  std::string_view objectTag{};  // of its object nodes
  Grouping grouping = Grouping::none;
  std::string_view prefix{};  // of its group keys
};

namespace {

constexpr std::string_view kObjectHeader = "Object";
constexpr std::string_view kObjectKeyPrefix = "Key";
constexpr std::string_view kOtherFilesKey = "OtherFiles";
constexpr std::string_view kOtherFileKeyPrefix = "OF";
constexpr std::string_view kOtherObjectKeyPrefix = "OFKey";

// Top-level nodes; the groups of each follow it.
constexpr std::array kCategories = {
    Category{"Player Buildings", "FactionBuilding.ini", "FactionBuilding.ini", "FactionBuilding.ini",
             Grouping::faction, "FB"},
    Category{"Player Units", "FactionUnit.ini", "FactionUnit.ini", "FactionUnit.ini", Grouping::faction,
             "FU"},
    Category{"Player Props", "FactionProp.ini", "FactionProp.ini"},
    Category{"", "Sep1"},
    Category{"Civilian Buildings", "CivilianBuilding.ini", "", "CivilianBuilding.ini", Grouping::letter,
             "CB"},
    Category{"Civilian Units", "CivilianUnit.ini", "", "CivilianUnit.ini", Grouping::letter, "CU"},
    Category{"Civilian Props", "CivilianProp.ini", "", "CivilianProp.ini", Grouping::letter, "CP"},
    Category{"", "Sep2"},
    Category{"Nature Props", "NatureProp.ini", "", "NatureProp.ini", Grouping::letter, "NP"},
    Category{"Nature Units", "NatureUnit.ini", "", "NatureUnit.ini"},
};

constexpr auto CategoryOf(std::string_view file) {
  return std::ranges::find(kCategories, file, &Category::key);
}
static_assert(std::ranges::all_of(kObjectFiles, [](std::string_view file) {
  return CategoryOf(file) != kCategories.end();
}));

struct Group {
  std::string_view text;
  std::string_view key;  // behind the category's prefix
};

// The names of a faction's objects begin with its key.
constexpr std::array kFactions = {Group{"America", "America"}, Group{"China", "China"}, Group{"GLA", "GLA"},
                                  Group{"Cinematic", "CINE"}};
constexpr Group kOther{"Other", "Other"};
constexpr Group kDigits{"0 - 9", "09"};

constexpr bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

std::string Joined(std::string_view a, std::string_view b) {
  std::string text(a);
  text += b;
  return text;
}

std::string Numbered(std::string_view prefix, std::int32_t number) {
  return Joined(prefix, std::to_string(number));
}

std::string_view FactionOf(std::string_view name) {
  for (const Group& faction : kFactions) {
    if (TVItem::CheckText(name, faction.key)) return faction.key;
  }
  return kOther.key;
}

std::string LetterGroup(std::string_view prefix, std::string_view name) {
  if (name.empty()) return "no group";
  return Joined(prefix, IsDigit(name[0]) ? kDigits.key : name.substr(0, 1));
}

std::string ParentKey(const Category& category, std::string_view name) {
  switch (category.grouping) {
    case Grouping::faction:
      return Joined(category.prefix, FactionOf(name));
    case Grouping::letter:
      return LetterGroup(category.prefix, name);
    case Grouping::none:
      break;
  }
  return std::string(category.key);
}

template <typename Take>
void ForEachFaction(Take&& take) {
  for (const Group& faction : kFactions) take(faction);
  take(kOther);
}

template <typename Take>
void ForEachLetter(Take&& take) {
  take(kDigits);
  for (char letter = 'A'; letter <= 'Z'; ++letter) {
    const std::string_view text(&letter, 1);
    take(Group{text, text});
  }
}

}  // namespace

ObjectTreeBuilder::ObjectTreeBuilder(AddNode add, const Yield& yieldPerLine)
    : add_(std::move(add)), yieldPerLine_(yieldPerLine), TVItem1_(yieldPerLine) {
  TVItem1_.LoadingItem = [this](std::string_view, std::optional<int> index) {
    fileIndex_ = index.value_or(0);
  };
  TVItem1_.NewLine = [this](std::string_view line) { takeLine(line); };
}

void ObjectTreeBuilder::BuildObjectTree(std::string_view gameFolder, const Progress& progress,
                                        const Yield& yieldNow) {
  constexpr double kStep = 100.0 / kObjectFiles.size();
  TVItem1_.GamePath = gameFolder;
  addSkeleton();
  double percent = kStep;
  for (const std::string_view file : kObjectFiles) {
    if (!FileExists(ObjectFilePath(gameFolder, file))) continue;
    yieldNow();
    TVItem1_.AddTVItem(file);
    progress(percent);
    percent += kStep;
    yieldNow();
  }
  addOtherFiles(gameFolder);
}

void ObjectTreeBuilder::addSkeleton() {
  for (const Category& category : kCategories) {
    const std::string file = category.tag.empty() ? std::string() : Joined(kObjectsBelowIni, category.tag);
    add_({category.key, category.text, {}, category.tag, NodeKind::group, file});
    const auto addGroup = [&](const Group& group) {
      add_({Joined(category.prefix, group.key), group.text, category.key, category.tag, NodeKind::group,
            file});
    };
    if (category.grouping == Grouping::faction) ForEachFaction(addGroup);
    if (category.grouping == Grouping::letter) ForEachLetter(addGroup);
  }
}

void ObjectTreeBuilder::takeLine(std::string_view line) {
  if (fileIndex_ == 0) return;
  const auto header = HeaderIn(line, kObjectHeader);
  if (!header || !header->name) return;
  const Category& category = *CategoryOf(kObjectFiles[static_cast<std::size_t>(fileIndex_) - 1]);
  place(*header->name, ParentKey(category, *header->name), category);
}

void ObjectTreeBuilder::place(std::string_view name, std::string_view parentKey, const Category& category) {
  ++NodeCounter_;
  const NodeKind kind = category.grouping == Grouping::none ? NodeKind::listed : NodeKind::object;
  add_({Numbered(kObjectKeyPrefix, NodeCounter_), name, parentKey, category.objectTag, kind,
        Joined(kObjectsBelowIni, category.key)});
}

void ObjectTreeBuilder::addOtherFiles(std::string_view gameFolder) {
  std::int32_t number = 0;
  for (const OtherFile& file : FindOtherFiles(gameFolder, yieldPerLine_)) {
    if (file.lineEnds.lf > 0) otherUnixFiles_.push_back({file.path, file.lineEnds});
    if (file.objects.empty()) continue;
    if (number == 0) {
      add_({"Sep3", "", "", ""});
      add_({kOtherFilesKey, "Other Files", "", ""});
    }
    addOtherFile(file, Numbered(kOtherFileKeyPrefix, ++number));
  }
}

void ObjectTreeBuilder::addOtherFile(const OtherFile& file, std::string_view key) {
  add_({key, NameOfOtherFile(file.path), kOtherFilesKey, file.path, NodeKind::file, file.path});
  for (const std::string& name : file.objects) {
    add_({Numbered(kOtherObjectKeyPrefix, ++otherObjects_), name, key, file.path, NodeKind::object,
          file.path});
  }
}

}  // namespace korvane
