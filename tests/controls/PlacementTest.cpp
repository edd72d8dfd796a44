// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QMainWindow>
#include <QScreen>
#include <QTemporaryDir>
#include <QWidget>

#include <array>

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

TEST(Placement, AWindowThatWasNeverClosedLeavesPlaceForItsTitleBar) {
  const QTemporaryDir folder;
  const SettingsStore store(folder.path());
  QWidget window;
  window.setObjectName("Window");
  const QSize screen = QGuiApplication::primaryScreen()->availableSize();
  window.resize(screen * 2);
  RestorePlacement(store, window);
  EXPECT_LE(window.height(), screen.height() - 32);
  EXPECT_LE(window.width(), screen.width());
  window.resize(300, 200);
  RestorePlacement(store, window);
  EXPECT_EQ(window.size(), QSize(300, 200));
}

TEST(Placement, ADamagedEntryGivesAWindowThatCanBeUsed) {
  struct Case {
    std::array<const char*, 4> stored;  // left, top, width, height; of frames of 8 and 30 pixels
    std::array<const char*, 2> frame = {"8", "30"};
  };
  const Case cases[] = {
      {{"0", "0", "1", "1"}},
      {{"0", "0", "-31968", "0"}},
      {{"0", "0", "32767", "32767"}},
      {{"-32768", "-32768", "400", "300"}},
      {{"32767", "32767", "400", "300"}},
      {{"790", "590", "1", "1"}},
      {{"-300", "-20", "100", "100"}},
      {{"10", "10", "400", "300"}, {"32767", "32767"}},
      {{"10", "10", "400", "300"}, {"-32768", "-32768"}},
      {{"", "x", "99999", "1e3"}, {"y", ""}},
  };
  const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
  for (const Case& test : cases) {
    const QTemporaryDir folder;
    SettingsStore store(folder.path());
    QMainWindow window;
    window.setObjectName("Window");
    auto* inside = new QWidget;
    inside->setMinimumSize(320, 240);
    window.setCentralWidget(inside);
    const char* const keys[] = {"_Left", "_Top", "_Width", "_Height", "_FrameWidth", "_FrameHeight"};
    const char* const values[] = {test.stored[0], test.stored[1], test.stored[2],
                                  test.stored[3], test.frame[0],  test.frame[1]};
    for (std::size_t i = 0; i < std::size(keys); ++i)
      store.save("EditWH", QString("Window") + keys[i], values[i]);
    RestorePlacement(store, window);
    const QSize asked = window.size();
    window.show();
    const std::string name = std::string(values[0]) + ' ' + values[1] + ' ' + values[2] + ' ' + values[3];
    EXPECT_GE(asked.width(), 320) << name;
    EXPECT_GE(asked.height(), 240) << name;
    EXPECT_LE(asked.width(), screen.width()) << name;
    EXPECT_LE(asked.height(), screen.height()) << name;
    const QRect titleBar(window.pos(), QSize(window.frameGeometry().width(), 32));
    EXPECT_GE(titleBar.intersected(screen).width(), 90) << name;
    EXPECT_GE(titleBar.intersected(screen).height(), 30) << name;
  }
}

}  // namespace
}  // namespace korvane
