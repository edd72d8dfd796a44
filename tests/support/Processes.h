// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>

namespace korvane {

// Runs `action` in a process of a user for whom permissions count, and gives whether it was content. Only
// root can become another user; anybody else stays who he is.
template <typename Action>
bool AsOrdinaryUser(Action action) {
  constexpr uid_t kNobody = 65534;
  const pid_t child = fork();
  if (child == 0) {
    if (geteuid() == 0 && (setgid(kNobody) != 0 || setuid(kNobody) != 0)) _exit(2);
    _exit(action() ? 0 : 1);
  }
  int status = -1;
  waitpid(child, &status, 0);
  return status == 0;
}

// Runs `action` as another copy of the program, which then ends without any notice.
template <typename Action>
void InAProcessThatDies(Action action) {
  const pid_t child = fork();
  if (child == 0) {
    action();
    _exit(0);
  }
  waitpid(child, nullptr, 0);
}

}  // namespace korvane
#endif
