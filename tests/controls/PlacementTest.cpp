// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTemporaryDir>
#include <QWidget>

#include "controls/Placement.h"
#include "settings/SettingsStore.h"

namespace korvane {
namespace {

TEST(Placement, OfAWindowThatIsNotNormalOnlyTheStateChanges) {
  const QTemporaryDir folder;
  SettingsStore store(folder.path());
  QWidget window;
  window.setObjectName("Window");
  window.show();
  SavePlacement(store, window);
  for (const auto state : {Qt::WindowMaximized, Qt::WindowMinimized}) {
    window.setWindowState(state);
    store.save("EditWH", "WindowWindowState", state == Qt::WindowMaximized ? "2" : "1");
    QCoreApplication::processEvents();
    const QRect before = window.geometry();
    RestorePlacement(store, window);
    EXPECT_EQ(window.windowState(), state);
    EXPECT_EQ(window.geometry(), before);
  }
}

}  // namespace
}  // namespace korvane
