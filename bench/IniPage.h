// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace korvane {

// The text of a game data file as it grows line by line, each line ended by CR LF.
class IniPage {
 public:
  // column: where rows put their "=", counted from 0; rows that are longer before it put it after a space.
  explicit IniPage(int column) : column_(column) {}

  int lines() const { return lines_; }
  void line(std::string_view text);
  void row(int indent, std::string_view key, std::string_view value, std::string_view remark = {});
  void append(const IniPage& other);
  // Comment lines; none when the count is not positive.
  void fillWithRemarks(int count);

  // Throws std::ios_base::failure when the file cannot be written.
  void save(const std::filesystem::path& path) const;

 private:
  int column_;
  int lines_ = 0;
  std::string text_;
};

}  // namespace korvane
