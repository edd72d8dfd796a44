// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

#include "check/Report.h"
#include "check/Rules.h"

namespace korvane {

// What the user asked for.
struct Arguments {
  std::string game;  // a game folder or an archive, as it was written
  std::vector<std::string> also;
  Report report = WriteText;
  Level level = Level::warning;
  RuleSet rules;
  std::string baseline;
  bool writeBaseline = false;
  unsigned jobs = 0;  // 0: as many as there are processors
};

// What is left to do when the command line has been read.
struct ReadArguments {
  Arguments arguments;
  bool done = false;  // nothing: it was a question (answered) or wrong (said)
  int exitCode = 0;   // then
};

ReadArguments ReadCommandLine(int argc, char** argv);

}  // namespace korvane
