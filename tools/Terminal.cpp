// SPDX-License-Identifier: GPL-3.0-or-later
#include "Terminal.h"

#include <cstdio>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

namespace korvane {

namespace {

bool GoesToTerminal(std::FILE* stream) {
#ifdef _WIN32
  return _isatty(_fileno(stream)) != 0;
#else
  return isatty(fileno(stream)) != 0;
#endif
}

}  // namespace

bool OutputGoesToTerminal() {
  return GoesToTerminal(stdout);
}

bool ErrorsGoToTerminal() {
  return GoesToTerminal(stderr);
}

}  // namespace korvane
