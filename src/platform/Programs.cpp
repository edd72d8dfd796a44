// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Programs.h"

#include <QProcess>
#include <QStandardPaths>

#include "files/NativePath.h"

namespace korvane {

bool SystemPrograms::installed(const QString& name) const {
  return !QStandardPaths::findExecutable(name).isEmpty();
}

bool SystemPrograms::start(const QString& program, const QStringList& arguments) {
  const bool isPath = program.contains('\\') || program.contains('/');
  const auto native = [&] {
    return QString::fromStdU16String(NativePath(program.toStdString()).u16string());
  };
  return QProcess::startDetached(isPath ? native() : program, arguments);
}

}  // namespace korvane
