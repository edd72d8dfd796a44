// SPDX-License-Identifier: GPL-3.0-or-later
#include <exception>
#include <iostream>
#include <stdexcept>

#include "Printable.h"
#include "Terminal.h"
#include "diff/Arguments.h"
#include "files/NativePath.h"

namespace {

using namespace korvane;

DataSource SourceAt(const std::string& written) {
  std::string path = ProgramText(PathFromUtf8(written));
  if (const std::string why = WhyNoDataSource(path); !why.empty())
    throw std::runtime_error(written + ": " + why);
  return {{std::move(path)}};
}

void SaySkipped(const Comparison& comparison) {
  for (const SkippedFile& skipped : comparison.skipped)
    std::cerr << "korvane-diff: " << Printable(Utf8FromPath(NativePath(ProgramPath(skipped.path))))
              << ": not compared, for " << skipped.reason << '\n';
}

int Compare(const Arguments& arguments) {
  const std::optional<Comparison> comparison =
      CompareSources(SourceAt(arguments.original), SourceAt(arguments.modification),
                     {.kinds = arguments.kinds, .text = arguments.text});
  SaySkipped(*comparison);
  arguments.write(std::cout, *comparison);
  if (!std::cout.flush()) throw std::runtime_error("the differences cannot be written");
  if (!comparison->skipped.empty()) return kCouldNotCompare;
  return comparison->items.empty() ? kSame : kDiffers;
}

}  // namespace

int main(int argc, char** argv) {
  const Utf8Session session(argc, argv);
  try {
    const ReadArguments read = ReadCommandLine(argc, argv);
    return read.done ? read.exitCode : Compare(read.arguments);
  } catch (const std::exception& error) {
    std::cerr << "korvane-diff: " << error.what() << '\n';
    return kCouldNotCompare;
  }
}
