// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/PlatformShell.h"

#include <QDesktopServices>
#include <QProcess>
#include <QStandardPaths>
#include <QUrl>

#include "platform/HelpViewer.h"
#include "platform/NativeText.h"

namespace korvane {

namespace {

bool IsWebAddress(const QString& text) {
  return text.startsWith("http://", Qt::CaseInsensitive) || text.startsWith("https://", Qt::CaseInsensitive);
}

QString Native(const QString& path) {
  return IsWebAddress(path) ? path : NativeText(ProgramPath(path.toStdString()));
}

#ifdef Q_OS_WIN

void OpenWithDesktop(const QString& target, const QString& folder) {
  if (IsWebAddress(target)) {
    QDesktopServices::openUrl(QUrl(target));
  } else if (target.endsWith(".exe", Qt::CaseInsensitive)) {
    QProcess::startDetached(target, {}, folder);
  } else {
    QDesktopServices::openUrl(QUrl::fromLocalFile(target));
  }
}

#else

void OpenWithDesktop(const QString& target, const QString& folder) {
  const bool isProgram = target.endsWith(".exe", Qt::CaseInsensitive);
  const QString wine = isProgram ? QStandardPaths::findExecutable("wine") : QString();
  QProcess opener;
  opener.setProgram(wine.isEmpty() ? QString("xdg-open") : wine);
  opener.setArguments({target});
  if (!IsWebAddress(folder)) opener.setWorkingDirectory(folder);
  opener.startDetached();
}

#endif

}  // namespace

void PlatformShell::RunFile(const QString& filename, const QString& dir) {
  if (filename.compare(helpFile_, Qt::CaseInsensitive) == 0) {
    help_.showContents();
    return;
  }
  OpenWithDesktop(Native(filename), Native(dir));
}

}  // namespace korvane
