// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ProcessEnd.h"

#include <QCoreApplication>
#include <QProcess>

#include <cstdlib>

namespace korvane {

void RealProcessEnd::end() {
  std::_Exit(EXIT_SUCCESS);
}

bool RealProcessEnd::startAnew() {
  return QProcess::startDetached(QCoreApplication::applicationFilePath(), {});
}

}  // namespace korvane
