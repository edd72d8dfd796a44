// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cerrno>

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
  step.loss = [replaces, size](const GameFolder& folder, const RunResult&) {
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
  for (const SweptStep& step :
       {Writing("replace", "300"), Writing("replace", "200000"), Writing("create", "300")}) {
    ExpectNothingLost(step, Sweep(step));
  }
  for (const char* how : {"replace", "create"}) {
    const SweptStep step = Writing(how, "300");
    ExpectNothingLost(step, SweepFreeSpace(step, 300, 20));
  }
}

// A file system that can neither rename sparingly nor link; a name is then held by an empty file meanwhile.
TEST(SaveFaults, AFileIsCreatedWholeWhereLinksAreMissing) {
  SweptStep step = Writing("create", "300");
  step.name += " without links";
  step.always = {{"rename2", 1, "on", ENOSYS}, {"link", 1, "on", EPERM}};
  step.loss = [loss = step.loss](const GameFolder& folder, const RunResult& result) {
    const bool excused = result.killed || result.diskGone;
    return excused && folder.read(kFile).empty() ? std::string() : loss(folder, result);
  };
  ExpectNothingLost(step, Sweep(step));
}

TEST(SaveFaults, WhatIsReadOfAFileIsAllOfItOrNothing) {
  SweptStep step;
  step.name = "read a file";
  step.command = {KORVANE_ONE_STEP, "copy", "@/" + kFile, "-"};
  step.prepare = [](const GameFolder& folder) { folder.write(kFile, NewText("90000")); };
  step.isDone = [](const GameFolder& folder) { return folder.read(kFile + ".copy") == NewText("90000"); };
  step.loss = [&step](const GameFolder& folder, const RunResult&) {
    const bool absent = !std::filesystem::exists(folder.native(kFile + ".copy"));
    return absent || step.isDone(folder) ? "" : "a part is taken for the whole";
  };
  ExpectNothingLost(step, Sweep(step));
}

TEST(SaveFaults, ASymbolicLinkStaysOneWhateverCallFails) {
  SweptStep step = Writing("replace", "300");
  step.name += " behind a link";
  const std::string real = "elsewhere/real.ini";
  step.prepare = [real](const GameFolder& folder) {
    folder.write(real, kOld);
    std::filesystem::create_symlink(folder.native(real), folder.native(kFile));
  };
  step.loss = [loss = step.loss](const GameFolder& folder, const RunResult& result) {
    return std::filesystem::is_symlink(folder.native(kFile)) ? loss(folder, result) : "the link is gone";
  };
  ExpectNothingLost(step, Sweep(step));
}

}  // namespace
}  // namespace korvane
