// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <string>
#include <unordered_set>
#include <vector>

#include "catalogue/StructureReader.h"
#include "check/BlockTexts.h"
#include "check/FileCheck.h"
#include "check/FolderCheck.h"
#include "check/RuleFunctions.h"

namespace korvane {

namespace {

// Kinds of items that mean nothing unless something names them. Maps and windows name objects and images, the
// program itself events, cursors and the like.
constexpr std::string_view kNamedKinds[] = {
    "Animation", "Armor",   "AudioEvent",         "CommandButton",  "CommandSet", "DamageFX",     "FXList",
    "Locomotor", "Science", "ObjectCreationList", "ParticleSystem", "Upgrade",    "SpecialPower", "Weapon"};

using Words = std::unordered_set<std::string, HashFolded, SameFolded>;

// Collects all words but the names that blocks give themselves.
class WordCollector : public StructureSink {
 public:
  void blockBegins(const BlockHeader& block) override {
    WordReader words(block.words, block.wordsColumn);
    if (block.depth == 0) words.next();
    add(words);
  }
  void keyFound(const KeyLine& key) override {
    addWord(key.key.text);
    add(key.words());
  }

  const Words& words() const { return words_; }

 private:
  void add(WordReader words) {
    for (TextWord word = words.next(); !word.text.empty(); word = words.next()) addWord(word.text);
  }

  // A name may stand behind a label: "fx:Explosion".
  void addWord(std::string_view word) {
    if (!words_.contains(word)) words_.emplace(word);
    const std::size_t colon = word.rfind(':');
    if (colon != std::string_view::npos) words_.emplace(word.substr(colon + 1));
  }

  Words words_;
};

// What is bought with this kind of command is an upgrade.
constexpr std::array<std::string_view, 2> kBuyingCommands = {"PLAYER_UPGRADE", "OBJECT_UPGRADE"};
// Upgrades of which the program itself knows what they do.
constexpr std::array<std::string_view, 2> kBuiltInUpgrades = {"Upgrade_Nationalism", "Upgrade_Fanaticism"};

class CommandFinder : public StructureSink {
 public:
  void keyFound(const KeyLine& key) override {
    if (EqualFolded(key.key.text, "Command")) command = key.words().next().text;
  }
  std::string_view command;
};

bool BuysUpgrades(std::string_view buttonText) {
  CommandFinder finder;
  ReadStructure(buttonText, finder);
  return std::ranges::any_of(kBuyingCommands,
                             [&](std::string_view command) { return EqualFolded(command, finder.command); });
}

// Says of one upgrade whether it is sold and what else names it.
class UpgradeUses {
 public:
  UpgradeUses(const FolderCheck& check, BlockTexts& texts) : catalogue_(check.catalogue()), texts_(texts) {}

  bool isSoldInVain(std::string_view upgrade) {
    bool sold = false;
    for (const FoundUse& use : catalogue_.uses(structure_.space("Upgrade"), upgrade)) {
      const BlockType& type = structure_.type(use.file->blocks()[use.block].type);
      const bool isButton = type.keyword == "CommandButton";
      const bool isPicture =
          type.keyword == "Object" && structure_.key(use.key).key.starts_with("UpgradeCameo");
      if (isPicture) continue;
      if (!isButton || !buysUpgrade(use)) return false;
      sold = sold || isInSet(use);
    }
    return sold;
  }

 private:
  bool buysUpgrade(const FoundUse& use) {
    return BuysUpgrades(texts_.text(*use.file, use.file->blocks()[use.block]));
  }

  bool isInSet(const FoundUse& use) const {
    const auto button =
        std::ranges::find(use.file->definitions(), use.block, &CatalogueFile::Definition::block);
    return button != use.file->definitions().end() &&
           catalogue_.countUses(structure_.space("CommandButton"), use.file->name(button->name)) > 0;
  }

  const GameStructure& structure_ = GameStructure::get();
  const Catalogue& catalogue_;
  BlockTexts& texts_;
};

}  // namespace

void CheckUnusedItems(FolderCheck& check) {
  WordCollector collector;
  SourceReader reader;
  for (const auto& file : check.catalogue().files()) {
    if (check.context().stop.stop_requested()) return;
    if (reader.read(file->source()).empty()) ReadStructure(reader.bytes(), collector);
  }
  for (const CatalogueFile* file : check.files()) {
    for (const CatalogueFile::Definition& definition : file->definitions()) {
      const std::string_view kind = GameStructure::get().kinds()[definition.kind].name;
      const std::string_view name = file->name(definition.name);
      if (std::ranges::find(kNamedKinds, kind) == std::end(kNamedKinds) || collector.words().contains(name) ||
          check.context().names.kindElsewhere(file->space(definition.name), name) != kNoKind)
        continue;
      check.report(RuleId::unused, *file, definition,
                   std::string(kind) + " " + Shown(name) + " is named nowhere else in the INI files");
    }
  }
}

void CheckUpgradesHaveEffect(FolderCheck& check) {
  const KindId upgrades = GameStructure::get().kind("Upgrade");
  BlockTexts texts;
  UpgradeUses uses(check, texts);
  for (const CatalogueFile* file : check.files()) {
    for (const CatalogueFile::Definition& definition : file->definitions()) {
      const std::string_view name = file->name(definition.name);
      const auto isThis = [name](std::string_view known) { return EqualFolded(known, name); };
      if (definition.kind != upgrades || std::ranges::any_of(kBuiltInUpgrades, isThis)) continue;
      if (uses.isSoldInVain(name))
        check.report(RuleId::noEffect, *file, definition,
                     "Upgrade " + Shown(name) + " can be bought and triggers nothing");
    }
  }
}

}  // namespace korvane
