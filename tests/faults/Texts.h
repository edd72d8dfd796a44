// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdlib>
#include <string>

namespace korvane {

// The text that a step writes; another one for each size.
inline std::string NewText(const std::string& size) {
  std::string text = "new " + size + '\n';
  text.resize(static_cast<std::size_t>(std::atoll(size.c_str())), 'n');
  return text;
}

// The text that is noted as the first, second or third.
inline std::string DraftText(int number, const std::string& size) {
  return std::to_string(number) + NewText(size);
}

}  // namespace korvane
