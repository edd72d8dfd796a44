// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Programs.h"

#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>

#include <cstdlib>

#ifdef Q_OS_WIN
#include <qt_windows.h>

#include <shellapi.h>
#endif

#include "files/DiskFile.h"
#include "platform/NativeText.h"

namespace korvane {

namespace {

#ifdef Q_OS_WIN

// The system asks the user, who may say no.
bool StartAsAdministrator(const QString& program) {
  const std::wstring file = program.toStdWString();
  SHELLEXECUTEINFOW start{};
  start.cbSize = sizeof start;
  start.fMask = SEE_MASK_NOASYNC;
  start.lpVerb = L"runas";
  start.lpFile = file.c_str();
  start.nShow = SW_SHOWNORMAL;
  return ShellExecuteExW(&start) != 0;
}

#else

bool StartAsAdministrator(const QString&) {
  return false;
}

#endif

}  // namespace

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

bool RealProcessEnd::startAnew(Rights rights) {
  const QString program = QCoreApplication::applicationFilePath();
  return rights == Rights::administrator ? StartAsAdministrator(program)
                                         : QProcess::startDetached(program, {});
}

bool RealProcessEnd::needsAdministrator(const QString& file) const {
  return NeedsAdministrator(NativePath(ProgramPath(file.toStdString())));
}

}  // namespace korvane
