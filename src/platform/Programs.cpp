// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Programs.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>

#include <cstdlib>

#include "platform/NativeText.h"

namespace korvane {

bool SystemPrograms::installed(const QString& name) const {
  return !QStandardPaths::findExecutable(name).isEmpty();
}

bool SystemPrograms::start(const QString& program, const QStringList& arguments) {
  const bool isPath = program.contains('\\') || program.contains('/');
  return QProcess::startDetached(isPath ? NativeText(ProgramPath(program.toStdString())) : program,
                                 arguments);
}

void RealProcessEnd::end() {
  std::_Exit(EXIT_SUCCESS);
}

bool RealProcessEnd::startAnew() {
  return QProcess::startDetached(QCoreApplication::applicationFilePath(), {});
}

}  // namespace korvane
