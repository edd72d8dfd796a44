// SPDX-License-Identifier: GPL-3.0-or-later
#include <cinttypes>
#include <cstdio>
#include <iostream>
#include <stdexcept>

#include "Commands.h"
#include "Container.h"
#include "Printable.h"
#include "Progress.h"
#include "stock/RestorePath.h"

namespace korvane {

namespace {

std::uint64_t SizeOf(Container& files) {
  std::uint64_t size = 0;
  files.read([&size](std::string_view piece) { size += piece.size(); });
  return size;
}

}  // namespace

bool List(const std::string& container) {
  const auto files = OpenContainer(container);
  for (std::int64_t i = 0; i < files->count(); ++i) {
    files->goTo(i);
    std::printf("%10" PRIu64 "  %s\n", SizeOf(*files), Printable(files->path()).c_str());
  }
  return true;
}

bool Verify(const std::string& container) {
  const auto files = OpenContainer(container);
  std::uint64_t bytes = 0;
  std::uint64_t faults = 0;
  Progress progress("Verifying", files->count());
  for (std::int64_t i = 0; i < files->count(); ++i) {
    try {
      files->goTo(i);
      const std::string path = files->path();
      if (!IsSafeRelativePath(path)) throw std::runtime_error("\"" + path + "\" would leave the game folder");
      bytes += SizeOf(*files);
    } catch (const std::runtime_error& error) {
      progress.clear();
      std::cerr << "File " << i + 1 << ": " << Printable(error.what()) << '\n';
      ++faults;
    }
    progress.stepDone();
  }
  progress.clear();
  std::cout << Counted(static_cast<std::uint64_t>(files->count()), "file") << ", " << Counted(bytes, "byte")
            << ", " << Counted(faults, "fault") << '\n';
  return faults == 0;
}

}  // namespace korvane
