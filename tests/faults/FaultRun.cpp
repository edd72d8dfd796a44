// SPDX-License-Identifier: GPL-3.0-or-later
#include "faults/FaultRun.h"

#include <array>
#include <cstdlib>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>

namespace korvane {

namespace {

void SetUp(const FaultRun& run) {
  std::string rules;
  for (const Fault& fault : run.faults) rules += (rules.empty() ? "" : ";") + TextOf(fault);
  setenv("LD_PRELOAD", KORVANE_FAULTY_CALLS, 1);
  setenv("FAULTS_BELOW", run.below.c_str(), 1);
  setenv("FAULTS", rules.c_str(), 1);
  if (run.freeBytes >= 0) setenv("FAULTS_FREE", std::to_string(run.freeBytes).c_str(), 1);
  if (!run.trace.empty()) setenv("FAULTS_TRACE", run.trace.c_str(), 1);
}

[[noreturn]] void Become(const FaultRun& run, int output) {
  dup2(output, STDOUT_FILENO);
  dup2(output, STDERR_FILENO);
  SetUp(run);
  std::vector<char*> arguments;
  for (const std::string& argument : run.command) arguments.push_back(const_cast<char*>(argument.c_str()));
  arguments.push_back(nullptr);
  execv(arguments[0], arguments.data());
  _exit(127);
}

std::string ReadAll(int file) {
  std::string text;
  std::array<char, 4096> buffer{};
  for (ssize_t n = 0; (n = read(file, buffer.data(), buffer.size())) > 0;) {
    text.append(buffer.data(), static_cast<std::size_t>(n));
  }
  return text;
}

}  // namespace

std::string TextOf(const Fault& fault) {
  return fault.kind + ' ' + std::to_string(fault.from) + ' ' + fault.how + ' ' + std::to_string(fault.error);
}

RunResult RunWithFaults(const FaultRun& run) {
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return {};
  const pid_t child = fork();
  if (child == 0) Become(run, ends[1]);
  close(ends[1]);
  RunResult result;
  result.text = ReadAll(ends[0]);
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  result.killed = WIFSIGNALED(status);
  if (WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
  return result;
}

std::vector<std::string> CallsOf(FaultRun run) {
  run.trace = run.below.parent_path() / (run.below.filename().string() + ".trace");
  std::filesystem::remove(run.trace);
  RunWithFaults(run);
  std::vector<std::string> kinds;
  std::ifstream trace(run.trace);
  for (std::string line; std::getline(trace, line);) kinds.push_back(line.substr(0, line.find(' ')));
  std::filesystem::remove(run.trace);
  return kinds;
}

}  // namespace korvane
