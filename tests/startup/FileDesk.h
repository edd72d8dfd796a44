// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTest>

#include "controls/InPlaceTable.h"
#include "controls/NoticeBar.h"
#include "mainwindow/FrmEdit.h"
#include "manualeditor/FrmManEdit.h"
#include "manualeditor/IniTextEdit.h"
#include "startup/Program.h"
#include "support/TestDesk.h"
#include "support/Windows.h"

namespace korvane {

// The whole program on a small game folder, its main window showing an object.
class FileDesk : public testing::Test, protected TestDesk {
 protected:
  static constexpr const char* kFile = "Data/INI/Object/FactionUnit.ini";
  static constexpr std::string_view kUnits =
      "; units\n"
      "Object JeepWreck\n  BuildCost = 1\nEnd\n"
      "Object Tank\n  BuildCost   = 900 ; was 800\n  BuildTime = 8.0\n"
      "  VisionRange = 150\n  VisionRange = 90\n  Locomotor = SET_NORMAL Tracks\nEnd\n"
      "Object Jeep\n  BuildCost = 2\nEnd\n"
      "Object Truck\n  BuildCost = 70\n"
      "  WeaponSet\n    Conditions = None\n    Weapon = PRIMARY Gun\n  End\n"
      "  WeaponSet\n    Conditions = ELITE\n    Weapon = PRIMARY Rocket\n  End\n"
      "  Locomotor = SET_NORMAL Tracks\n  Locomotor = SET_PANIC Wheels\nEnd\n";

  void SetUp() override {
    game.objects("FactionUnit.ini", kUnits);
    game.ini("Locomotor.ini",
             "Locomotor Tracks\n  Speed = 40 ; fast\n  TurnRate = 22.5\nEnd\n"
             "Locomotor Wheels\n  Speed = 60\nEnd\n");
    ObjectTreeModel& tree = window.objects();
    tree.addNode({"FactionUnit.ini", "Player Units", "", "FactionUnit.ini"});
    tree.addNode({"FUOther", "Other", "FactionUnit.ini", "FactionUnit.ini"});
    for (const char* name : {"Tank", "Jeep", "Truck"})
      tree.addNode({std::string("Key") + name, name, "FUOther", "FactionUnit.ini", NodeKind::object,
                    "Object\\FactionUnit.ini"});
    window.show();
    window.prepareInformationList();
    show("Tank");
  }

  void show(const char* name) { ASSERT_TRUE(window.showObject("Data\\INI\\Object\\FactionUnit.ini", name)); }
  QLineEdit& field(const char* name) const { return *window.findChild<QLineEdit*>(name); }
  // The user's typing over what the field shows.
  void type(const char* name, const char* text) const {
    field(name).selectAll();
    QTest::keyClicks(&field(name), text);
  }
  QStringList notices() const { return window.findChild<NoticeBar*>("NoticeBar")->sentences(); }
  static const char* WindowOf(TableEditorId editor) {
    return editor == TableEditorId::armours       ? "FrmArmour"
           : editor == TableEditorId::commandSets ? "FrmCmdSet"
                                                  : "FrmCmdBtn";
  }
  void follow(const char* caption) const { followIn(window, caption); }
  static void followIn(const QWidget& inWindow, const char* caption) {
    const QRegularExpression link("href=\"(\\d+)\">" + QRegularExpression::escape(QString(caption)));
    for (QLabel* label : inWindow.findChild<NoticeBar*>("NoticeBar")->findChildren<QLabel*>("Notice")) {
      const auto found = link.match(label->text());
      if (!found.hasMatch()) continue;
      Q_EMIT label->linkActivated(found.captured(1));
      QApplication::processEvents();
      return;
    }
    FAIL() << "no link " << caption;
  }
  static void save() { WindowNamed("FrmManEdit")->findChild<QAction*>("MnuSave")->trigger(); }
  // Another text in the place of one that stands once in the file, saved in the manual editor.
  void change(const QString& file, const char* before, const char* after) {
    program.showManualEditor({game.qpath() + "\\Data\\INI\\" + file});
    waitForEditor();
    const std::size_t at = edited().find(before);
    ASSERT_NE(at, std::string::npos) << edited();
    const auto from = static_cast<qsizetype>(at);
    text().replaceSpan({from, from + static_cast<qsizetype>(std::string_view(before).size())}, after);
    save();
  }
  void editInFile() const {
    follow("Edit in file");
    waitForEditor();
  }
  static void waitForEditor() {
    EXPECT_TRUE(QTest::qWaitFor([] {
      const auto* editor = qobject_cast<FrmManEdit*>(VisibleWindow("FrmManEdit"));
      return editor != nullptr && editor->ManEditInitDone();
    }));
  }
  static IniTextEdit& text() { return *WindowNamed("FrmManEdit")->findChild<IniTextEdit*>("TxtManEdit"); }
  static std::string edited() { return text().fileBytes().bytes; }
  static std::string with(std::string_view before, std::string_view after) {
    std::string units = GameFolder::CrLf(kUnits);
    return units.replace(units.find(before), before.size(), after);
  }
  void undo() const { QTest::keyClick(text().focusProxy(), Qt::Key_Z, Qt::ControlModifier); }

  Program program{services, folders, {}};
  FrmEdit& window{program.mainWindow()};
};

}  // namespace korvane
