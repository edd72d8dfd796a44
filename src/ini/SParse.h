// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "ini/TVItem.h"
#include "ini/TableSink.h"

namespace korvane {

// The object chosen in the object tree.
struct SelectedObject {
  std::string name;  // the file's bytes
  std::string file;  // the program's path below "\Data\INI\"
};

// Masked fields that take the handling values of a locomotor.
class LocomotorFields {
 public:
  virtual ~LocomotorFields() = default;
  // Shows the field's empty template, with the cursor at its start.
  virtual void reset(int index) = 0;
  // Puts the value in at the cursor.
  virtual void insert(int index, std::string_view value) = 0;
};

// Finds and cuts out the blocks and values of the game's INI files. The one definition of their grammar: a
// top-level block begins at a line "Kind Name" in the first column and ends at the first later line that
// begins with "end" in any letter case; there is no nesting count. Texts are the files' bytes with every line
// followed by CR LF. Nothing is cached: each operation that takes a file reads it from the disk, whole.
// A file that cannot be read, or a block that is not there, gives an empty text.
//
// One read at a time. Since reads let window events run, whoever starts one in answer to the user first takes
// the parser (ParserTurn below) and does nothing when it is taken.
class SParse {
 public:
  // `gameFolder` is asked before every read. `yield` lets events run and is called for every line.
  // `busyPointer`, where given, shows (true) and takes away (false) the busy pointer around a read.
  SParse(std::function<std::string()> gameFolder, Yield yield, std::function<void(bool)> busyPointer = {});
  SParse(const SParse&) = delete;
  SParse& operator=(const SParse&) = delete;

  std::string ObjectName;   // the block to look for
  bool Collecting = false;  // a read may still collect lines

  // The text of the first block of the kind whose header begins, in any letter case, with the kind word, a
  // space and ObjectName. `IniFile` is relative to "\Data\INI\"; by default the unit file.
  std::string GetObjectText(std::string_view ObjectHeader, std::optional<std::string_view> IniFile = {});

  // The values of all lines of the block that begin (after spaces) with the key, each followed by CR LF.
  std::string GetParameterValue(std::string_view ObjectHeader, std::string_view Parameter,
                                std::optional<std::string_view> IniFile = {});
  // The same from a text in hand.
  static std::string GetParameterValueNoINI(std::string_view ObjectHeader, std::string_view Parameter,
                                            std::string_view StrData);

  // The same as a list of views into the text.
  static std::vector<std::string_view> ParameterValues(std::string_view key, std::string_view text);

  // Single-value look-ups in a block's text: the values of the key's lines joined with CR LF, or nothing. The
  // key stands for itself only, not for longer keys that begin with it.
  std::optional<std::string> GetWeaponValue(std::string_view key, std::string_view text) const;
  static std::optional<std::string> GetLocomotorValue(std::string_view key, std::string_view text);
  static std::optional<std::string> GetCommandButtonValue(std::string_view key, std::string_view text);
  // A slot number is compared by its digits alone: 1 also finds the lines of 10, 11 and 12.
  static std::optional<std::string> GetCommandSetValue(int slot, std::string_view text);

  // The text without its blank lines, and without a CR LF at its end.
  static std::string RemVBCrLf(std::string_view Text);

  // The locomotors named by the object's block, in file order.
  std::vector<std::string> LocomotorNames(const SelectedObject& object);
  // The same, joined with CR LF. This and the next two leave ObjectName at the last name they looked up.
  std::string GetLocomotorNames(const SelectedObject& object);
  // Their blocks, each followed by an empty line.
  std::string GetLocomotors(const SelectedObject& object);
  // Fills the fields with the locomotor of the selected tab (from 1), after resetting those from
  // `LowerBound` to `UpperBound`.
  void GetLocomotorData(const SelectedObject& object, int selectedTab, int LowerBound, int UpperBound,
                        LocomotorFields& fields);

  // Fill a table with the block of the selected entry, one row for each parameter (weapons, command buttons),
  // line (armour types) or slot (command sets), and give the block's text. A parameter that is not in the
  // block has a caption without a value. The caller completes the table.
  std::string GetWeaponData(std::string_view selected, TableSink& table);
  std::string GetArmourData(std::string_view selected, TableSink& table);
  std::string GetCmdSetData(std::string_view selected, TableSink& table);
  std::string GetCmdBtnData(std::string_view selected, TableSink& table);

  ChoiceList ButtonNames;  // what every slot of a command set offers; set when their editor loads

  // Fills the table from an armour type's block: damage types and percentages.
  void SParseArmourText(std::string_view StrText, TableSink& table);

  // Cuts an object's text into its weapon sets, for WeaponSetTexts.
  void ExtractWeapons(std::string_view StrData);
  // One text for each weapon set of the last ExtractWeapons, and an empty one behind them.
  const std::vector<std::string>& WeaponSetTexts() const { return weaponSetTexts_; }

  // The game folder that the next read will use.
  std::string gameFolder() const { return gameFolder_(); }
  const Yield& yield() const { return yield_; }

 private:
  friend class ParserTurn;

  void startCollecting();
  void takeLine(std::string_view line);
  // Takes a line of an armour type apart, into the two fields below.
  void SParseArmourLine(std::string StrLine);

  std::function<std::string()> gameFolder_;
  Yield yield_;
  std::function<void(bool)> busyPointer_;
  TVItem TVItem1_;
  bool InBlock_ = false;
  bool taken_ = false;
  std::string lowerHeader_;  // kind word, space and ObjectName in small letters
  std::string buffer_;
  std::string damageType_;
  std::string percentage_;
  std::vector<std::string> weaponSetTexts_{1};
};

// Takes the parser for one command of the user. A command that finds it taken is ignored.
class ParserTurn {
 public:
  explicit ParserTurn(SParse& parser) : parser_(parser), mine_(!parser.taken_) { parser_.taken_ = true; }
  ~ParserTurn() {
    if (mine_) parser_.taken_ = false;
  }
  ParserTurn(const ParserTurn&) = delete;
  ParserTurn& operator=(const ParserTurn&) = delete;

  explicit operator bool() const { return mine_; }

 private:
  SParse& parser_;
  bool mine_;
};

}  // namespace korvane
