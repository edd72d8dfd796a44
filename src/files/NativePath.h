// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace korvane {

// The path that UTF-8 text names as it stands.
std::filesystem::path PathFromUtf8(std::string_view text);

// A path as UTF-8 text. What is no text in a name of Windows becomes a replacement character.
std::string Utf8FromPath(const std::filesystem::path& path);

// A path as the program writes it: UTF-8 text with backslashes, in the game's own spelling. It is no path of
// this machine, and does not become one by itself.
class ProgramPath {
 public:
  ProgramPath() = default;
  explicit ProgramPath(std::string_view text) : text_(text) {}

  const std::string& text() const { return text_; }

 private:
  std::string text_;
};

// Where a path of the program lies on this machine. On Windows it is used as it is, but for the
// mark of a long path in front, which some of the system's calls do not know. Elsewhere a backslash is
// a separator, a component that does not exist in its exact spelling is matched without regard to letter case
// (of several matches the first in byte order), and a drive letter is looked up in the Wine prefix
// ($WINEPREFIX, else ~/.wine). A component that matches nothing is kept as it is written.
std::filesystem::path NativePath(const ProgramPath& path);

// A path on this machine, or a part of one, as the program writes it.
std::string ProgramText(const std::filesystem::path& native);

// True when the path names an ordinary file, even an empty one. Whether it can be read is not asked. Anything
// else, a folder or a text that is no path included, gives false.
bool FileExists(const ProgramPath& path);

// True when the path names a folder.
bool FolderExists(const ProgramPath& path);

}  // namespace korvane
