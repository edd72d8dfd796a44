// SPDX-License-Identifier: GPL-3.0-or-later
// korvane-tour FOLDER: goes through the program by itself and leaves pictures of its windows in the folder.
#include <QApplication>
#include <QDir>

#include <cstdio>

#include "controls/Icons.h"
#include "controls/ReadableColours.h"
#include "startup/DarkDesktop.h"
#include "startup/Desktop.h"
#include "startup/Program.h"
#include "tour/Tour.h"

int main(int argc, char** argv) {
  korvane::FollowDarkDesktop();
  QApplication app(argc, argv);
  QApplication::setWindowIcon(korvane::ApplicationIcon());
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 2 || !QDir().mkpath(arguments[1])) {
    std::fprintf(stderr, "korvane-tour: name a folder for the pictures\n");
    return 2;
  }
  korvane::ReadablePalette::install();
  korvane::Desktop desktop;
  korvane::Program program(desktop.services(), desktop.folders(), {});
  return korvane::Tour(program, desktop.services().settings.gameFolder(), arguments[1]).run() ? 0 : 1;
}
