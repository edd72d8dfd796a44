// SPDX-License-Identifier: GPL-3.0-or-later
#include <QApplication>

#include "controls/FullTextTips.h"
#include "controls/Icons.h"
#include "controls/KeyboardOutline.h"
#include "controls/MenuKey.h"
#include "controls/ReadableColours.h"
#include "controls/ScreenReaders.h"
#include "startup/DarkDesktop.h"
#include "startup/Desktop.h"
#include "startup/EndSignals.h"
#include "startup/Program.h"

int main(int argc, char** argv) {
  korvane::FollowDarkDesktop();
  QApplication app(argc, argv);
  QApplication::setApplicationName("Korvane");
  QApplication::setDesktopFileName("korvane");
  QApplication::setWindowIcon(korvane::ApplicationIcon());
  korvane::FullTextTips::install();
  korvane::KeyboardOutline::install();
  korvane::MenuKey::install();
  korvane::ReadablePalette::install();
  korvane::InstallWindowRoles();
  korvane::Desktop desktop;
  korvane::Program program(desktop.services(), desktop.folders(), QApplication::arguments().mid(1).join(' '));
  korvane::EndSignals endSignals;
  QObject::connect(&endSignals, &korvane::EndSignals::asked, [&program](int signal) {
    program.keepAtEnd();
    korvane::EndSignals::endBy(signal);
  });
  // The end of the user's session is asked for first, and may still not come; then no window may ask
  // anything.
  QObject::connect(&app, &QGuiApplication::commitDataRequest, [&program] { program.keepAtEnd(); });
  QObject::connect(&app, &QGuiApplication::aboutToQuit, [&desktop] { desktop.services().process.end(); });
  program.StartProgram();
  return QApplication::exec();
}
