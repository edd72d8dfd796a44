// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdio>
#include <filesystem>
#include <string>
#include <utility>

#ifndef _WIN32
#include <sys/wait.h>
#endif

namespace korvane {

// Runs a tool in a folder; the arguments are UTF-8 text with double quotes where needed. Gives its exit code
// and what it wrote, errors too.
inline std::pair<int, std::string> RunTool(const std::filesystem::path& folder, const std::string& tool,
                                           const std::string& arguments) {
#ifdef _WIN32
  const std::string run = '"' + std::filesystem::absolute(tool).string() + "\" " + arguments;
  const std::u8string utf8(run.begin(), run.end());
  const std::wstring command =
      L"cd /d \"" + folder.wstring() + L"\" && " + std::filesystem::path(utf8).wstring();
  std::FILE* pipe = _wpopen((command + L" 2>&1").c_str(), L"r");
#else
  const std::string command = "cd '" + folder.string() + "' && '" + tool + "' " + arguments + " 2>&1";
  std::FILE* pipe = popen(command.c_str(), "r");
#endif
  if (pipe == nullptr) return {-1, "no pipe"};
  std::string output;
  for (int c; (c = std::fgetc(pipe)) != EOF;) output += static_cast<char>(c);
#ifdef _WIN32
  return {_pclose(pipe), output};
#else
  return {WEXITSTATUS(pclose(pipe)), output};
#endif
}

}  // namespace korvane
