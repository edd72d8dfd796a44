// SPDX-License-Identifier: GPL-3.0-or-later
#include "Terminal.h"

#include <cstdio>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace korvane {

bool ErrorsGoToTerminal() {
#ifdef _WIN32
  return _isatty(_fileno(stderr)) != 0;
#else
  return isatty(fileno(stderr)) != 0;
#endif
}

}  // namespace korvane
