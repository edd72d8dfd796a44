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

}  // namespace korvane
