// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QLabel>
#include <QMenu>
#include <QTabBar>
#include <QTreeWidget>

#include "setup/ResStrings.h"

namespace korvane {
namespace {

TEST(ResStrings, ATextThatEndsInAnUnderscoreGoesOnWithTheNextId) {
  EXPECT_EQ(GetResString(3001),
            "The Setup Wizard is finished setting up the editor.\r\n\r\nTo use the editor, press Finish!");
  EXPECT_EQ(GetResString(4000), "");
}

TEST(ResStrings, EveryKindOfControlGetsItsTextByNumber) {
  QWidget window;
  QLabel plain("kept", &window);
  QLabel tagged(&window);
  tagged.setProperty(kTag, 2000);
  tagged.setToolTip("101");
  QMenu menu(&window);
  QAction* entry = menu.addAction("100");
  QTabBar tabs(&window);
  tabs.addTab("first");
  tabs.setTabData(0, 2002);
  tabs.setTabToolTip(0, "1000");
  QTreeWidget list(&window);
  list.headerItem()->setData(0, Qt::UserRole, 3000);
  LoadResStrings(window);
  EXPECT_EQ(plain.text(), "kept");
  EXPECT_EQ(tagged.text(), "Step 1");
  EXPECT_EQ(tagged.toolTip(), "Cancel");
  EXPECT_EQ(entry->text(), "Help");
  EXPECT_EQ(tabs.tabText(0), "Step 2");
  EXPECT_EQ(tabs.tabToolTip(0), "Introduction");
  EXPECT_EQ(list.headerItem()->text(0), "Finished!");
}

}  // namespace
}  // namespace korvane
