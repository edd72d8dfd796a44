// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvane {

// Ends the program's process at once with exit code 0: no other window gets a notice. Settings are on the
// disk before, since every save writes them through. An interface, so that a test's own process goes on;
// callers return right after the call.
class ProcessEnd {
 public:
  virtual ~ProcessEnd() = default;
  virtual void end() = 0;
  // Starts the program anew, without arguments, beside this process. False when it cannot be started.
  virtual bool startAnew() = 0;
};

class RealProcessEnd : public ProcessEnd {
 public:
  [[noreturn]] void end() override;
  bool startAnew() override;
};

}  // namespace korvane
