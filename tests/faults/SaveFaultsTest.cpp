// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "faults/FaultSweep.h"
#include "faults/Texts.h"

namespace korvane {
namespace {

const std::string kFile = "Data/INI/Weapon.ini";
const std::string kOld = "old\n";

SweptStep Writing(const std::string& how, const std::string& size) {
  SweptStep step;
  step.name = how + ' ' + size + " bytes";
  step.command = {KORVANE_ONE_STEP, how, "@/" + kFile, size};
  const bool replaces = how == "replace";
  step.prepare = [replaces](const GameFolder& folder) {
    if (replaces) folder.write(kFile, kOld);
  };
  step.loss = [replaces, size](const GameFolder& folder) {
    const std::string now = folder.read(kFile);
    const bool absent = !std::filesystem::exists(folder.native(kFile));
    const bool fine = now == NewText(size) || (replaces ? now == kOld : absent);
    return fine ? std::string() : "the file has " + std::to_string(now.size()) + " bytes";
  };
  step.isDone = [size](const GameFolder& folder) { return folder.read(kFile) == NewText(size); };
  if (replaces) step.again = step.command;
  return step;
}

TEST(SaveFaults, AFileIsOldOrNewWhateverCallFails) {
  for (const char* how : {"replace", "create"}) {
    for (const char* size : {"0", "300", "200000"}) {
      const SweptStep step = Writing(how, size);
      ExpectNothingLost(step, Sweep(step));
    }
    const SweptStep step = Writing(how, "300");
    ExpectNothingLost(step, SweepFreeSpace(step, 300, 20));
  }
}

}  // namespace
}  // namespace korvane
