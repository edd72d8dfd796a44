// SPDX-License-Identifier: GPL-3.0-or-later
#include "Terminal.h"

#include <cstdio>

#ifdef _WIN32
#include <filesystem>
#include <io.h>

// The second needs the first.
// clang-format off
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#include <shellapi.h>
// clang-format on
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

bool OutputTakesColours() {
  if (!OutputGoesToTerminal()) return false;
#ifdef _WIN32
  const HANDLE console = ::GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  return ::GetConsoleMode(console, &mode) != 0 &&
         ::SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
#else
  return true;
#endif
}

#ifdef _WIN32

Utf8Session::Utf8Session(int& argc, char**& argv) {
  int count = 0;
  wchar_t** wide = ::CommandLineToArgvW(::GetCommandLineW(), &count);
  for (int i = 0; wide != nullptr && i < count; ++i) {
    const std::u8string text = std::filesystem::path(wide[i]).u8string();
    arguments_.emplace_back(text.begin(), text.end());
  }
  ::LocalFree(wide);
  for (std::string& argument : arguments_) pointers_.push_back(argument.data());
  pointers_.push_back(nullptr);
  if (!arguments_.empty()) {
    argc = count;
    argv = pointers_.data();
  }
  if (OutputGoesToTerminal() || ErrorsGoToTerminal()) codePage_ = ::GetConsoleOutputCP();
  if (codePage_ != 0) ::SetConsoleOutputCP(CP_UTF8);
}

Utf8Session::~Utf8Session() {
  if (codePage_ != 0) ::SetConsoleOutputCP(codePage_);
}

#else

Utf8Session::Utf8Session(int&, char**&) {}

#endif

}  // namespace korvane
