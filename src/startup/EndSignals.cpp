// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/EndSignals.h"

#include <cerrno>
#include <csignal>

#ifndef _WIN32
#include <QSocketNotifier>

#include <fcntl.h>
#include <unistd.h>
#endif

namespace korvane {

#ifdef _WIN32

EndSignals::EndSignals() = default;

EndSignals::~EndSignals() = default;

void EndSignals::take() {}

#else

namespace {

constexpr int kSignals[] = {SIGTERM, SIGHUP, SIGINT};
int pipeEnds[2] = {-1, -1};  // a signal handler can do no more than write into it

void PassOn(int signal) {
  const int error = errno;
  const auto number = static_cast<unsigned char>(signal);
  static_cast<void>(::write(pipeEnds[1], &number, 1) == 1);
  errno = error;
}

}  // namespace

EndSignals::EndSignals() {
  if (::pipe2(pipeEnds, O_CLOEXEC | O_NONBLOCK) != 0) return;
  auto* notifier = new QSocketNotifier(pipeEnds[0], QSocketNotifier::Read, this);
  connect(notifier, &QSocketNotifier::activated, this, &EndSignals::take);
  struct sigaction action {};
  action.sa_handler = PassOn;
  action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
  for (const int signal : kSignals) {
    struct sigaction before {};
    ::sigaction(signal, nullptr, &before);
    if (before.sa_handler != SIG_IGN) ::sigaction(signal, &action, nullptr);  // as nohup wants it
  }
}

EndSignals::~EndSignals() {
  for (const int signal : kSignals) std::signal(signal, SIG_DFL);
  for (int& end : pipeEnds) {
    if (end >= 0) ::close(end);
    end = -1;
  }
}

void EndSignals::take() {
  unsigned char number = 0;
  if (::read(pipeEnds[0], &number, 1) == 1) Q_EMIT asked(number);
}

#endif

void EndSignals::endBy(int signal) {
  std::signal(signal, SIG_DFL);
  std::raise(signal);
}

}  // namespace korvane
