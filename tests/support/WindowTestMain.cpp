// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QDir>
#include <QLocale>
#include <QStandardPaths>
#include <QTemporaryDir>

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const QTemporaryDir data;  // what the tests keep does not belong among the user's own versions
  qputenv("XDG_DATA_HOME", data.path().toLocal8Bit());
#ifdef Q_OS_WIN  // which asks no variable
  QStandardPaths::setTestModeEnabled(true);
  const QString own = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  if (own.endsWith("qttest")) QDir(own).removeRecursively();
#endif
  QApplication app(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  QLocale::setDefault(QLocale(QLocale::English, QLocale::UnitedStates));
  return RUN_ALL_TESTS();
}
