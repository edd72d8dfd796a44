// SPDX-License-Identifier: GPL-3.0-or-later
#include <QFile>
#include <QFontInfo>

#include <fstream>

#include "mainwindow/MainWindow.h"

namespace korvane {
namespace {

class UnloadTest : public MainWindow {};

TEST_F(UnloadTest, ClosingWithNoKeepsTheProgramRunning) {
  open();
  messages.answer = false;
  EXPECT_FALSE(window->close());
  EXPECT_EQ(messages.shown[0].text, "Are you sure that you want to quit?");
  EXPECT_EQ(messages.shown[0].title, "Do you want to quit?");
  EXPECT_EQ(process.ends, 0);
  EXPECT_FALSE(settings.find("EditWH", "FrmEdit_Width"));
  messages.answer = true;
  window->close();
  EXPECT_EQ(process.ends, 1);
  EXPECT_TRUE(settings.find("EditWH", "FrmEdit_Width"));
  EXPECT_EQ(launcher.takeCalls(), (QStringList{"keep texts", "close browse"}));
}

TEST_F(UnloadTest, WithTheQuestionOffClosingAsksNothing) {
  settings.SaveSet("Exit", "0");
  open();
  window->close();
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_EQ(process.ends, 1);
}

TEST_F(UnloadTest, TheExitCommandNeverAsks) {
  open();
  get<QAction>("MnuExit").trigger();
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_EQ(process.ends, 1);
  EXPECT_TRUE(settings.find("EditWH", "FrmEdit_Left"));
}

TEST_F(UnloadTest, SettingsThatCannotBeStoredAreToldInTheStatusBar) {
  open();
  const auto& trouble = get<QLabel>("LblTrouble");
  EXPECT_TRUE(trouble.isHidden());
  const QString file = settings.placeName();
  std::ofstream(file.toStdString()) << "not settings";
  settings.SaveSet("Exit", "0");
  EXPECT_TRUE(trouble.isVisible());
  EXPECT_EQ(trouble.text(), "The settings could not be stored: it is damaged");
  EXPECT_EQ(trouble.toolTip(), file);
  for (const char* panel : {"Panel1", "Panel2", "Panel3"}) {
    EXPECT_LT(get<QLabel>(panel).x(), trouble.x()) << panel;
  }
  EXPECT_TRUE(QFile::remove(file));
  settings.SaveSet("Exit", "0");
  EXPECT_TRUE(trouble.isHidden());
}

TEST_F(UnloadTest, NonsenseInTheSettingsOpensAUsableWindow) {
  for (const char* name : {"InfoTab", "MenuiFont", "MenuiFontSize", "MenuiBold", "MenuiItalic", "Exit"}) {
    settings.SaveSet(name, "nonsense");
  }
  settings.SaveSet("MenuiFontSize", "1e30");
  for (const char* key : {"_Width", "WindowState"}) {
    settings.save("EditWH", QString("FrmEdit") + key, "99999999");
  }
  settings.save("EditWH", "FrmEdit_Height", "32000");
  settings.save("EditWH", "FrmEdit_Left", "-32000");
  settings.save("EditWH", "FrmEdit_Top", "32000");
  open();
  const QRect screen = window->screen()->availableGeometry();
  EXPECT_TRUE(screen.contains(QPoint(window->frameGeometry().right() - 40, window->y() + 10)));
  EXPECT_GT(window->width(), 300);
  EXPECT_LE(window->height(), screen.height());
  EXPECT_LT(QFontInfo(get<QTreeView>("TVMenu").font()).pointSizeF(), 100);
  EXPECT_EQ(get<QTabWidget>("F_Tab").currentIndex(), 0);
  click("Jeep");
  EXPECT_EQ(text("IHealth"), "200");
}

TEST_F(UnloadTest, AMissingSettingReadsAsOne) {
  open();
  EXPECT_EQ(get<QTabWidget>("F_Tab").currentIndex(), 1);
  EXPECT_TRUE(get<QTreeView>("TVMenu").font().bold());
  settings.SaveSet("MenuiBold", "False");
  settings.SaveSet("InfoTab", "5");
  window->applyOptions();
  EXPECT_EQ(get<QTabWidget>("F_Tab").currentIndex(), 5);
  EXPECT_FALSE(get<QTreeView>("TVMenu").font().bold());
}

}  // namespace
}  // namespace korvane
