// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "compare/ExportFormats.h"

namespace korvane {

enum DiffExitCode { kSame = 0, kDiffers = 1, kCouldNotCompare = 2 };

// What the user asked for.
struct Arguments {
  std::string original;
  std::string modification;
  void (*write)(std::ostream& out, const Comparison& comparison) = nullptr;
  std::vector<KindId> kinds;
  bool text = false;
};

// What is left to do when the command line has been read.
struct ReadArguments {
  Arguments arguments;
  bool done = false;  // nothing: it was a question (answered) or wrong (said)
  int exitCode = 0;   // then
};

ReadArguments ReadCommandLine(int argc, char** argv);

}  // namespace korvane
