// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace korvane {

// Programs of this machine. An interface, so that tests see what would be started.
class Programs {
 public:
  virtual ~Programs() = default;

  // True when a program of this name can be started without naming its folder.
  virtual bool installed(const QString& name) const = 0;
  // Starts a program (its name, or the program's path text, see NativePath.h) in a window of its own and does
  // not wait for it. False when it cannot be started.
  virtual bool start(const QString& program, const QStringList& arguments) = 0;
};

class SystemPrograms : public Programs {
 public:
  bool installed(const QString& name) const override;
  bool start(const QString& program, const QStringList& arguments) override;
};

// Ends the program's process at once with exit code 0: no other window gets a notice. Settings are on the
// disk before, since every save writes them through. An interface, so that a test's own process goes on;
// callers return right after the call.
class ProcessEnd {
 public:
  virtual ~ProcessEnd() = default;
  virtual void end() = 0;

  enum class Rights { same, administrator };
  // Starts the program anew, without arguments, beside this process. False when it cannot be started, or when
  // the user does not allow it.
  virtual bool startAnew(Rights rights) = 0;
  // See NeedsAdministrator; the program's path.
  virtual bool needsAdministrator(const QString& file) const = 0;
};

class RealProcessEnd : public ProcessEnd {
 public:
  [[noreturn]] void end() override;
  bool startAnew(Rights rights) override;
  bool needsAdministrator(const QString& file) const override;
};

}  // namespace korvane
