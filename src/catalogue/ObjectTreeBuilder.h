// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "ini/TVItem.h"
#include "ini/Yield.h"

namespace korvane {

// A node on its way into the object tree. Texts are the files' bytes.
struct TreeEntry {
  std::string_view key;
  std::string_view text;
  std::string_view parentKey;  // empty at the top level
  std::string_view tag;
};

// Fills the object tree: the fixed categories and groups first, then one node for every object header in the
// eight object files.
class ObjectTreeBuilder {
 public:
  // Adds a node as the last child of its parent; false when there is no such parent.
  using AddNode = std::function<bool(const TreeEntry&)>;
  // The share of the files that are read, in percent.
  using Progress = std::function<void(double percent)>;

  ObjectTreeBuilder(AddNode add, Yield yieldPerLine);

  // Reads the files of the game folder (the program's path). `yieldNow` runs the pending events before and
  // after each file. Files that do not exist are passed over.
  void BuildObjectTree(std::string_view gameFolder, const Progress& progress, const Yield& yieldNow);

 private:
  void addSkeleton();
  void takeLine(std::string_view line);
  void place(std::string_view name, std::string_view parentKey, std::string_view tag);

  AddNode add_;
  TVItem TVItem1_;
  int fileIndex_ = 0;             // of the file being read, 1 to 8
  std::int32_t NodeCounter_ = 0;  // never reset during a run
};

}  // namespace korvane
