// SPDX-License-Identifier: GPL-3.0-or-later
#include "faults/FaultSweep.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <iostream>
#include <map>
#include <set>

namespace korvane {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t kShown = 5;

// What goes wrong with calls of a kind in real life, when it stays so.
const std::map<std::string, int> kLasting = {
    {"write", ENOSPC}, {"create", ENOSPC}, {"mkdir", ENOSPC},  {"link", EPERM},    {"lock", ENOLCK},
    {"chown", EPERM},  {"open", EACCES},   {"rename", EACCES}, {"xattr", ENOTSUP}, {"unlink", EACCES}};

bool OnlyLooks(const std::string& kind) {
  const std::set<std::string> kinds = {"stat", "open", "read", "getxattr", "access"};
  return kinds.contains(kind);
}

// A death before a call that only looks is the same as one before the next call that changes something.
std::vector<Fault> FaultsAt(long call, const std::string& kind, long ofKind) {
  const auto lasting = kLasting.find(kind);
  std::vector<Fault> faults = {{"any", call, "once", EIO},
                               {kind, ofKind, "on", lasting == kLasting.end() ? EIO : lasting->second}};
  if (kind == "read" || kind == "write") faults.push_back({"any", call, "short"});
  if (OnlyLooks(kind)) return faults;
  faults.push_back({"any", call, "on", EIO});
  faults.push_back({"any", call, "kill"});
  faults.push_back({"any", call, "power"});
  if (kind == "write") faults.push_back({"any", call, "full", ENOSPC});
  if (kind == "write") faults.push_back({"any", call, "cut"});
  return faults;
}

// One step in a fresh folder.
class Attempt {
 public:
  explicit Attempt(const SweptStep& step) : step_(step) { step_.prepare(folder_); }

  FaultRun run(const std::vector<std::string>& command) const {
    FaultRun run{command, folder_.native("")};
    run.below = fs::canonical(run.below.parent_path());
    for (std::string& argument : run.command) {
      if (argument.starts_with('@')) argument.replace(0, 1, run.below.string());
    }
    run.faults = step_.always;
    return run;
  }

  bool isDone() const { return step_.isDone(folder_); }

  void judge(const RunResult& result, const std::string& name, SweepCounts& counts) const {
    ++counts.runs;
    if (result.killed) ++counts.kills;
    if (result.exitCode > 0) ++counts.refusals;
    const std::string what = name + " (" + std::to_string(result.exitCode) + "): " + result.text;
    std::string loss = step_.loss(folder_, result);
    if (step_.lossUnlessTold && result.exitCode <= 0) loss += step_.lossUnlessTold(folder_);
    if (!loss.empty()) counts.losses.push_back(what + loss);
    if (result.exitCode == 0 && !step_.isDone(folder_)) counts.falseSuccesses.push_back(what);
    if (result.exitCode > 0 && result.text.find_first_not_of('\n') == std::string::npos) {
      counts.silentFailures.push_back(what);
    }
    if (result.killed && !step_.again.empty()) lookForLeftovers(what, counts);
  }

 private:
  void lookForLeftovers(const std::string& what, SweepCounts& counts) const {
    const RunResult again = RunWithFaults(run(step_.again));
    for (const auto& entry : fs::recursive_directory_iterator(folder_.native(""))) {
      const std::string name = entry.path().filename().string();
      if (name.ends_with(".part") || name.ends_with(".lock")) counts.leftovers.push_back(what + name);
    }
    if (again.exitCode != 0) counts.leftovers.push_back(what + "it cannot be done again: " + again.text);
  }

  const SweptStep& step_;
  GameFolder folder_;
};

void Show(const char* what, const std::vector<std::string>& cases, const std::string& step) {
  std::string shown;
  for (std::size_t i = 0; i < std::min(kShown, cases.size()); ++i) shown += "\n  " + cases[i];
  EXPECT_TRUE(cases.empty()) << step << ": " << cases.size() << ' ' << what << shown;
}

}  // namespace

SweepCounts Sweep(const SweptStep& step) {
  SweepCounts counts;
  const std::vector<std::string> kinds = [&] {
    const Attempt attempt(step);
    std::vector<std::string> calls = CallsOf(attempt.run(step.command));
    if (!attempt.isDone()) counts.falseSuccesses.emplace_back("it is not done though nothing fails");
    return calls;
  }();
  counts.calls = static_cast<int>(kinds.size());
  std::map<std::string, long> seen;
  for (std::size_t i = 0; i < kinds.size(); ++i) {
    for (const Fault& fault : FaultsAt(static_cast<long>(i) + 1, kinds[i], ++seen[kinds[i]])) {
      if (fault.how == "power" && !step.survivesPowerCut) continue;
      const Attempt attempt(step);
      FaultRun run = attempt.run(step.command);
      run.faults.push_back(fault);
      RunResult result = RunWithFaults(run);
      result.diskGone = fault.kind == "any" && fault.how == "on";
      result.passing = fault.how == "once";
      attempt.judge(result, kinds[i] + ", " + TextOf(fault), counts);
    }
  }
  return counts;
}

SweepCounts SweepFreeSpace(const SweptStep& step, long most, long apart) {
  SweepCounts counts;
  for (long bytes = 0; bytes <= most; bytes += apart) {
    const Attempt attempt(step);
    FaultRun run = attempt.run(step.command);
    run.freeBytes = bytes;
    attempt.judge(RunWithFaults(run), std::to_string(bytes) + " bytes free", counts);
  }
  return counts;
}

void ExpectNothingLost(const SweptStep& step, const SweepCounts& counts) {
  std::cout << step.name << ": " << counts.calls << " calls, " << counts.runs << " runs, " << counts.kills
            << " kills, " << counts.refusals << " refusals, " << counts.losses.size() << " losses, "
            << counts.falseSuccesses.size() << " false successes\n";
  EXPECT_GT(counts.runs, 0);
  Show("losses", counts.losses, step.name);
  Show("false successes", counts.falseSuccesses, step.name);
  Show("failures without a word", counts.silentFailures, step.name);
  Show("left behind", counts.leftovers, step.name);
}

}  // namespace korvane
