// SPDX-License-Identifier: GPL-3.0-or-later
#include "IniPage.h"

#include <algorithm>
#include <fstream>

namespace korvane {

void IniPage::line(std::string_view text) {
  text_.append(text).append("\r\n");
  ++lines_;
}

void IniPage::row(int indent, std::string_view key, std::string_view value, std::string_view remark) {
  std::string text(static_cast<std::size_t>(indent), ' ');
  text += key;
  text.resize(std::max(text.size() + 1, static_cast<std::size_t>(column_)), ' ');
  text.append("= ").append(value);
  if (!remark.empty()) text.append("  ; ").append(remark);
  line(text);
}

void IniPage::append(const IniPage& other) {
  text_ += other.text_;
  lines_ += other.lines_;
}

void IniPage::fillWithRemarks(int count) {
  for (int i = 0; i < count; ++i) line("  ; balanced against the others of its kind");
}

void IniPage::save(const std::filesystem::path& path) const {
  std::ofstream file;
  file.exceptions(std::ios::badbit | std::ios::failbit);
  file.open(path, std::ios::binary);
  file << text_;
  file.close();
}

}  // namespace korvane
