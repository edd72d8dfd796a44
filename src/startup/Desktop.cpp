// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/Desktop.h"

#include <QCoreApplication>

#include "files/NativePath.h"

namespace korvane {

namespace {

QString ProgramFolder() {
  const std::filesystem::path native(QCoreApplication::applicationDirPath().toStdU16String());
  return QString::fromStdString(ProgramText(native));
}

}  // namespace

Desktop::Desktop()
    : folders_{{}, ProgramFolder()},
      help_(folders_.helpFile()),
      messages_(help_),
      shell_(help_, folders_.helpFile()),
      services_{settings_, messages_, shell_, help_, process_, yield_, folders_} {
  QObject::connect(&help_, &HelpDesk::webLinkOpened,
                   [this](const QString& address) { shell_.RunFile(address, address); });
}

}  // namespace korvane
