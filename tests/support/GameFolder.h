// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <string_view>

#include "support/TemporaryFolder.h"

class QString;

namespace korvane {

// A small game folder of a test's own, gone at the end of the test.
class GameFolder {
 public:
  GameFolder() { std::filesystem::create_directories(native("Data/INI/Object")); }

  // The folder in the program's own path text.
  std::string path() const {
    std::string text = folder_.path().string();
    for (char& c : text) c = c == '/' ? '\\' : c;
    return text;
  }
  // The same for Qt; a template, so that tests without Qt can have a folder too.
  template <typename Text = QString>
  Text qpath() const {
    return Text::fromStdString(path());
  }

  std::filesystem::path native(std::string_view relative) const {
    return folder_.path() / std::u8string(relative.begin(), relative.end());
  }

  // Writes the bytes as they are; `relative` with slashes, below the game folder.
  void write(std::string_view relative, std::string_view bytes) const {
    std::filesystem::create_directories(native(relative).parent_path());
    std::ofstream(native(relative), std::ios::binary) << bytes;
  }
  // Writes a text with LF line ends as CR LF.
  void writeLines(std::string_view relative, std::string_view text) const { write(relative, CrLf(text)); }
  void ini(std::string_view name, std::string_view text) const {
    writeLines(std::string("Data/INI/").append(name), text);
  }
  void objects(std::string_view name, std::string_view text) const {
    writeLines(std::string("Data/INI/Object/").append(name), text);
  }

  std::string read(std::string_view relative) const {
    std::ifstream file(native(relative), std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }

  static std::string CrLf(std::string_view text) {
    std::string lines;
    for (const char c : text) lines += c == '\n' ? std::string("\r\n") : std::string(1, c);
    return lines;
  }

 private:
  TemporaryFolder folder_;
};

}  // namespace korvane
