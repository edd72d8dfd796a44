// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace korvane {

enum class NodeKind {
  group,   // a category, one of its groups, or a separator
  file,    // one of the other files: a group of its objects
  object,  // can be shown, unless it has no name
  listed,  // an object that is listed only
};

// A node on its way into the object tree.
struct TreeEntry {
  std::string_view key;
  std::string_view text;       // the files' bytes; the path (UTF-8) where the kind is `file`
  std::string_view parentKey;  // empty at the top level
  std::string_view tag;        // the file as the user sees it, or empty
  NodeKind kind = NodeKind::group;
  std::string_view file{};  // the program's path below "\Data\INI\"; empty where there is none
};

}  // namespace korvane
