// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "files/FilePieces.h"

namespace korvane {

// Lets pending window events run; called for every line that is read. May be empty.
using Yield = std::function<void()>;

// Reads a game INI file line by line and hands every line to its host. Paths are the program's own (UTF-8,
// backslashes); lines are the file's bytes. A file that cannot be read has no lines. One read at a time.
class TVItem {
 public:
  explicit TVItem(Yield yield = {}) : yield_(std::move(yield)) {}

  // Events, each delivered before the reader goes on. A line is valid only during the call; a handler that
  // throws loses its own line and no other.
  std::function<void(std::string_view line)> NewLine;
  std::function<void()> ProcStart;
  std::function<void()> ProcDone;
  std::function<void(std::string_view fileName, std::optional<int> fileIndex)> LoadingItem;

  bool Ready = true;          // false while a read other than OpenFile runs
  std::string FileKey;        // the file name given to the last AddTVItem
  std::string GamePath;       // the game folder
  int Stage = 0;              // the host's own mark, never looked at here
  bool YieldsPerLine = true;  // lets events run before each NewLine

  void OpenFile(std::string_view strFileName);

  // Reads a file below "\Data\INI\", by default the unit file, between ProcStart and ProcDone.
  void GetFUnitData(std::optional<std::string_view> IniName = std::nullopt);

  // The same for the file of the locomotors.
  void GetLocomotorData();

  // Reads an object file after a LoadingItem with its place (1 to 8) among the object files, if it has one.
  void AddTVItem(std::string_view Key);

  // True when the first text begins with the second, letter case significant.
  static bool CheckText(std::string_view StrString, std::string_view StringToFind) {
    return StrString.starts_with(StringToFind);
  }
  // True when the second text is anywhere in the first, in any case of its ASCII letters.
  static bool FindText(std::string_view StrString, std::string_view StringToFind);

 private:
  void readLines(const ProgramPath& path);
  void deliver(std::string_view line);
  void yield() const;

  Yield yield_;
  FilePieces file_;
};

}  // namespace korvane
