// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "faults/FaultSweep.h"

namespace korvane {
namespace {

const std::string kFile = "Command And Conquer Generals Korvane.ini";
const std::string kOld = "[Paths]\nCCPath=C:\\\\Games\\\\Generals\n\n[Settings]\nExit=0\nInfoTab=1\n";
const std::string kNew = "[Paths]\nCCPath=C:\\\\Games\\\\Generals\n\n[Settings]\nExit=0\nInfoTab=5\n";

SweptStep SettingsWrite() {
  SweptStep step;
  step.name = "a settings write";
  step.command = {KORVANE_ONE_STEP, "setting", "@", "5"};
  step.prepare = [](const GameFolder& folder) { folder.write(kFile, kOld); };
  step.loss = [](const GameFolder& folder, const RunResult&) {
    const std::string now = folder.read(kFile);
    return now == kOld || now == kNew ? std::string() : "the settings are \"" + now + '"';
  };
  step.isDone = [](const GameFolder& folder) { return folder.read(kFile) == kNew; };
  step.again = step.command;
  return step;
}

TEST(SettingsFaults, WholeOldOrNewWhateverCallFails) {
  const SweptStep step = SettingsWrite();
  ExpectNothingLost(step, Sweep(step));
}

TEST(SettingsFaults, WholeOldOrNewHoweverLittleIsFree) {
  const SweptStep step = SettingsWrite();
  ExpectNothingLost(step, SweepFreeSpace(step, 40, 1));
  ExpectNothingLost(step, SweepFreeSpace(step, 40 * 512, 512));
}

}  // namespace
}  // namespace korvane
