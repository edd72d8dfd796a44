// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/LineEnds.h"
#include "catalogue/TreeEntry.h"
#include "ini/TVItem.h"

namespace korvane {

struct Category;
struct OtherFile;

// Fills the object tree: the fixed categories and groups first, then one node for every object header in the
// eight object files, then the other files with their objects, if there are any.
class ObjectTreeBuilder {
 public:
  // Adds a node as the last child of its parent; false when there is no such parent.
  using AddNode = std::function<bool(const TreeEntry&)>;
  // The share of the files that are read, in percent.
  using Progress = std::function<void(double percent)>;

  ObjectTreeBuilder(AddNode add, const Yield& yieldPerLine);

  // Reads the files of the game folder (the program's path). `yieldNow` runs the pending events before and
  // after each object file. Files that do not exist are passed over.
  void BuildObjectTree(std::string_view gameFolder, const Progress& progress, const Yield& yieldNow);

  // Those of the other files that have Unix line ends.
  const std::vector<UnixFile>& otherUnixFiles() const { return otherUnixFiles_; }

 private:
  void addSkeleton();
  void takeLine(std::string_view line);
  void place(std::string_view name, std::string_view parentKey, const Category& category);
  void addOtherFiles(std::string_view gameFolder);
  void addOtherFile(const OtherFile& file, std::string_view key);

  AddNode add_;
  Yield yieldPerLine_;  // for each of the other files too
  TVItem TVItem1_;
  int fileIndex_ = 0;             // of the file being read, 1 to 8
  std::int32_t NodeCounter_ = 0;  // never reset during a run
  std::int32_t otherObjects_ = 0;
  std::vector<UnixFile> otherUnixFiles_;
};

}  // namespace korvane
