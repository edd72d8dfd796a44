// SPDX-License-Identifier: GPL-3.0-or-later
#include "faults/FaultRun.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace korvane {

namespace {

std::vector<std::pair<std::string, std::string>> VariablesOf(const FaultRun& run) {
  std::string rules;
  for (const Fault& fault : run.faults) rules += (rules.empty() ? "" : ";") + TextOf(fault);
  return {{"FAULTS_BELOW", run.below.string()},
          {"FAULTS", rules},
          {"FAULTS_FREE", run.freeBytes >= 0 ? std::to_string(run.freeBytes) : ""},
          {"FAULTS_TRACE", run.trace.string()}};
}

[[noreturn]] void Become(const FaultRun& run, int input, int output) {
  dup2(input, STDIN_FILENO);
  dup2(output, STDOUT_FILENO);
  dup2(output, STDERR_FILENO);
  setenv("LD_PRELOAD", KORVANE_FAULTY_CALLS, 1);
  for (const auto& [name, value] : VariablesOf(run)) setenv(name.c_str(), value.c_str(), 1);
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

RunResult ResultOf(int status, const std::string& text) {
  return {WIFSIGNALED(status), WIFEXITED(status) ? WEXITSTATUS(status) : -1, text, false};
}

// Starts the program of single steps once, for all of them.
class StepServer {
 public:
  StepServer() {
    std::array<int, 2> orders{};
    std::array<int, 2> answers{};
    if (pipe(orders.data()) != 0 || pipe(answers.data()) != 0) std::abort();
    if (fork() == 0) {
      close(orders[1]);
      close(answers[0]);
      Become({{KORVANE_ONE_STEP}, {}}, orders[0], answers[1]);
    }
    close(orders[0]);
    close(answers[1]);
    orders_ = fdopen(orders[1], "w");
    answers_ = fdopen(answers[0], "r");
  }

  RunResult run(const FaultRun& run) {
    for (const auto& [name, value] : VariablesOf(run))
      std::fprintf(orders_, "%s=%s\n", name.c_str(), value.c_str());
    for (std::size_t i = 1; i < run.command.size(); ++i)
      std::fprintf(orders_, "%s\n", run.command[i].c_str());
    std::fprintf(orders_, "\n");
    std::fflush(orders_);
    const std::string text = readTo('\0');
    return ResultOf(std::atoi(readTo('\n').c_str()), text);
  }

 private:
  std::string readTo(char end) {
    std::string text;
    for (int c; (c = std::fgetc(answers_)) != EOF && c != end;) text += static_cast<char>(c);
    return text;
  }

  std::FILE* orders_;
  std::FILE* answers_;
};

// It ends when this process does, and with it the end of its orders.
StepServer& Server() {
  static StepServer server;
  return server;
}

}  // namespace

std::string TextOf(const Fault& fault) {
  return fault.kind + ' ' + std::to_string(fault.from) + ' ' + fault.how + ' ' + std::to_string(fault.error);
}

RunResult RunWithFaults(const FaultRun& run) {
  if (run.command[0] == KORVANE_ONE_STEP) return Server().run(run);
  std::array<int, 2> ends{};
  if (pipe(ends.data()) != 0) return {};
  const pid_t child = fork();
  if (child == 0) Become(run, STDIN_FILENO, ends[1]);
  close(ends[1]);
  const std::string text = ReadAll(ends[0]);
  close(ends[0]);
  int status = 0;
  waitpid(child, &status, 0);
  return ResultOf(status, text);
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
