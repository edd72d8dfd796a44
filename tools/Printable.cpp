// SPDX-License-Identifier: GPL-3.0-or-later
#include "Printable.h"

#include <algorithm>

namespace korvane {

std::string Printable(std::string text) {
  std::replace_if(
      text.begin(), text.end(), [](unsigned char c) { return c < 0x20 || c == 0x7f; }, '?');
  return text;
}

}  // namespace korvane
