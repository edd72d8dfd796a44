// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace korvane {

// True when what is written to the stream is seen on a terminal.
bool OutputGoesToTerminal();
bool ErrorsGoToTerminal();
// True when a terminal to which output goes takes orders for colours; the consoles of old Windows show them
// as text.
bool OutputTakesColours();

// While it lives, a program is given and writes UTF-8 on Windows too: its arguments, and what goes to the
// console, for which the console's code page is changed. Elsewhere nothing needs to be done.
class Utf8Session {
 public:
  Utf8Session(int& argc, char**& argv);
#ifdef _WIN32
  ~Utf8Session();
#else
  ~Utf8Session() = default;
#endif
  Utf8Session(const Utf8Session&) = delete;
  Utf8Session& operator=(const Utf8Session&) = delete;

 private:
#ifdef _WIN32
  std::vector<std::string> arguments_;
  std::vector<char*> pointers_;
  unsigned codePage_ = 0;  // of the console before; 0: there is none
#endif
};

}  // namespace korvane
