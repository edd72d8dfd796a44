// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

#include "controls/InPlaceTable.h"
#include "mainwindow/FrmEdit.h"
#include "manualeditor/FrmManEdit.h"
#include "startup/Program.h"
#include "stock/StockFiles.h"
#include "stock/StockTable.h"
#include "support/TestDesk.h"
#include "support/Windows.h"

namespace korvane {
namespace {

// The way of a user through the program's windows.
class SearchJourney : public testing::Test, protected TestDesk {
 protected:
  void SetUp() override {
    game.ini("CommandSet.ini", "CommandSet TankSet\n  1 = Command_Stop\nEnd\n");
    game.ini("CommandButton.ini", "CommandButton Command_Go\nEnd\nCommandButton Command_Stop\nEnd\n");
  }

  template <typename Type>
  static Type& part(const char* window, const char* name) {
    return *WindowNamed(window)->findChild<Type*>(name);
  }
  static bool waitForTitle(const char* window, const QString& title) {
    const auto shown = [&] {
      return VisibleWindow(window) == nullptr ? QString() : VisibleWindow(window)->windowTitle();
    };
    const bool seen = QTest::qWaitFor([&] { return shown() == title; });
    EXPECT_EQ(shown().toStdString(), title.toStdString());
    return seen;
  }
  static void press(QWidget& control, Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    control.window()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(control.window()));
    control.setFocus();
    QTest::keyClick(&control, key, modifiers);
  }
  // The names are read in a worker: presses again until the key has something to go by.
  static void pressUntil(QWidget& control, Qt::Key key, const char* window) {
    EXPECT_TRUE(QTest::qWaitFor([&] {
      if (VisibleWindow(window) == nullptr) press(control, key);
      return VisibleWindow(window) != nullptr;
    }));
  }

  // Of what the manual editor shows, with this answer.
  void extract(const QString& answer) {
    ASSERT_TRUE(part<QAction>("FrmManEdit", "extractText").isVisible());
    messages.answers = {answer};
    part<QAction>("FrmManEdit", "extractText").trigger();
  }

  Program program{services, folders, {}};
};

TEST_F(SearchJourney, FromASlotOfACommandSetToItsButtonAndToWhatUsesIt) {
  ASSERT_TRUE(program.showEntry(TableEditorId::commandSets, "TankSet"));
  auto& rows = part<InPlaceTable>("FrmCmdSet", "LVEdit");
  rows.setCurrentIndex(rows.model()->index(0, 1));
  pressUntil(rows, Qt::Key_F4, "FrmCmdBtn");
  ASSERT_TRUE(waitForTitle("FrmCmdBtn", "Command_Stop - Command Button Editor"));
  press(part<QListView>("FrmCmdBtn", "LstWPN"), Qt::Key_F4, Qt::ShiftModifier);
  ASSERT_TRUE(waitForTitle("UsesWindow", "1 use of 'Command_Stop'"));
  auto& tree = part<QTreeView>("UsesWindow", "foundTree");
  while (tree.indexBelow(tree.currentIndex()).isValid()) press(tree, Qt::Key_Down);
  press(tree, Qt::Key_Return);
  ASSERT_TRUE(waitForTitle("FrmManEdit", "Manual Editor"));
  EXPECT_TRUE(
      QTest::qWaitFor([] { return part<QLabel>("FrmManEdit", "Panel5").text().endsWith("CommandSet.ini"); }));
  EXPECT_EQ(part<QLabel>("FrmManEdit", "Panel1").text(), "Line 2 of 4");
}

TEST_F(SearchJourney, AWeaponIsRenamedInNineFiles) {
  constexpr int kFiles = 9;
  const auto textOf = [](int i, const std::string& gun) {
    const std::string body = i == 0 ? "Weapon " + gun + "\n  Damage = 1\nEnd\n"
                                    : "Object Tank" + std::to_string(i) +
                                          "\n  WeaponSet\n    Weapon = PRIMARY " + gun +
                                          " ; its gun\n  End\nEnd\n";
    return GameFolder::CrLf(body);
  };
  const auto nameOf = [](int i) {
    return i == 0 ? std::string("Data/INI/Weapon.ini") : "Data/INI/Object/Tanks" + std::to_string(i) + ".ini";
  };
  for (int i = 0; i < kFiles; ++i) game.write(nameOf(i), textOf(i, "OldGun"));
  program.showWeaponEditor();
  press(part<QListView>("FrmWE", "LstWPN"), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  auto& sought = part<QLineEdit>("UsesWindow", "soughtText");
  QTest::keyClicks(&sought, "OldGun");
  press(sought, Qt::Key_Return);
  ASSERT_TRUE(waitForTitle("UsesWindow", "9 lines with 'OldGun'"));
  auto& tree = part<QTreeView>("UsesWindow", "foundTree");
  for (int i = 0; i < kFiles; ++i) {
    tree.setCurrentIndex(tree.model()->index(0, 0, tree.model()->index(i, 0)));
    press(tree, Qt::Key_Return);
  }
  auto& tabs = part<QTabBar>("FrmManEdit", "textTabs");
  QWidget& text = *part<QWidget>("FrmManEdit", "TxtManEdit").focusProxy();
  ASSERT_EQ(tabs.count(), kFiles);
  const auto& editor = *static_cast<FrmManEdit*>(text.window());
  ASSERT_TRUE(QTest::qWaitFor([&] { return editor.ManEditInitDone(); }));
  for (int i = 0; i < kFiles; ++i) {
    QTest::keyClicks(&text, "NewerGun");  // over what was found
    EXPECT_EQ(tabs.tabText(tabs.currentIndex()).right(1), "*");
    press(text, Qt::Key_S, Qt::ControlModifier);
    press(text, Qt::Key_Tab, Qt::ControlModifier);
  }
  for (int i = 0; i < kFiles; ++i) EXPECT_EQ(game.read(nameOf(i)), textOf(i, "NewerGun"));
  EXPECT_TRUE(messages.shown.empty() && messages.asked.empty());
  part<QAction>("UsesWindow", "refresh").trigger();
  EXPECT_TRUE(waitForTitle("UsesWindow", "0 lines with 'OldGun'"));
}

TEST_F(SearchJourney, ATextInAnArchiveIsFoundAndShownButNeverSaved) {
  game.write("INI.big", ArchiveBytes({{"Data\\INI\\Packed.ini", "Science SCIENCE_Packed\r\nEnd\r\n"}}));
  program.showArmourEditor();
  press(part<QListView>("FrmArmour", "LstWPN"), Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
  ASSERT_NE(VisibleWindow("UsesWindow"), nullptr);
  press(part<QLineEdit>("UsesWindow", "soughtText"), Qt::Key_S);
  part<QLineEdit>("UsesWindow", "soughtText").setText("science_packed");
  press(part<QLineEdit>("UsesWindow", "soughtText"), Qt::Key_Return);
  ASSERT_TRUE(waitForTitle("UsesWindow", "1 line with 'science_packed'"));
  auto& tree = part<QTreeView>("UsesWindow", "foundTree");
  tree.setCurrentIndex(tree.model()->index(0, 0, tree.model()->index(0, 0)));
  press(tree, Qt::Key_Return);
  ASSERT_TRUE(waitForTitle("FrmManEdit", "Manual Editor"));
  EXPECT_TRUE(QTest::qWaitFor(
      [] { return part<QLabel>("FrmManEdit", "Panel5").text().endsWith("Packed.ini (from INI.big)"); }));
  QTest::keyClicks(part<QWidget>("FrmManEdit", "TxtManEdit").focusProxy(), "x");
  EXPECT_FALSE(program.hasUnsavedText(game.qpath() + "\\Data\\INI\\Packed.ini"));
  part<QAction>("FrmManEdit", "MnuSave").trigger();
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text, "This text is in INI.big; extract it first.");
  EXPECT_FALSE(std::filesystem::exists(game.native("Data/INI/Packed.ini")));
  extract("Cancel");
  EXPECT_FALSE(std::filesystem::exists(game.native("Data/INI/Packed.ini")));
  extract("Extract");
  EXPECT_EQ(game.read("Data/INI/Packed.ini"), "Science SCIENCE_Packed\r\nEnd\r\n");
  EXPECT_TRUE(
      QTest::qWaitFor([] { return part<QLabel>("FrmManEdit", "Panel5").text().endsWith("Packed.ini"); }));
  EXPECT_FALSE(part<QAction>("FrmManEdit", "extractText").isVisible());
  program.showManualEditor({.ManualEditFile = game.qpath() + "\\Data\\INI\\CommandSet.ini"});
  EXPECT_TRUE(
      QTest::qWaitFor([] { return part<QLabel>("FrmManEdit", "Panel5").text().endsWith("CommandSet.ini"); }));
  QTest::keyClicks(part<QWidget>("FrmManEdit", "TxtManEdit").focusProxy(), "; ");
  part<QAction>("FrmManEdit", "MnuSave").trigger();
  EXPECT_TRUE(game.read("Data/INI/CommandSet.ini").starts_with("; CommandSet"));
}

// The whole program on a game folder with a tank, its gun and the gun's sound.
class TankJourney : public SearchJourney {
 protected:
  void SetUp() override {
    SearchJourney::SetUp();
    StockTable stock(own.native("Data"));
    stock.add("Data\\INI\\Armor.ini", "Armor Plate\r\nEnd\r\n");
    stock.commit();
    folders.program = own.qpath();
    settings.saveGameFolder(game.qpath());
    game.write("generals.exe", "");
    game.ini("Weapon.ini", "Weapon Knife\nEnd\nWeapon TankGun\n  FireSound = TankBang\nEnd\n");
    game.ini("SoundEffects.ini", "AudioEvent Hum\nEnd\nAudioEvent TankBang\nEnd\n");
    game.objects("FactionUnit.ini",
                 "Object AmericaJeep\n  MaxHealth = 90\nEnd\n"
                 "Object AmericaTankCrusader\n  MaxHealth = 480\n"
                 "  WeaponSet\n    Conditions = None\n    Weapon = PRIMARY TankGun\n  End\nEnd\n");
    program.StartProgram();
  }
  static bool waitForActive(const char* window) {
    return QTest::qWaitFor([&] {
      return QApplication::activeWindow() != nullptr && QApplication::activeWindow()->objectName() == window;
    });
  }
  // Finds by what is typed, once the names are read.
  static void findAnything(const char* window, const QString& typed) {
    auto& field = part<QLineEdit>(window, "findAnythingField");
    const auto& list = part<QListView>(window, "findAnythingList");
    ASSERT_TRUE(QTest::qWaitFor([&] { return field.hasFocus(); }));
    QTest::keyClicks(&field, typed);
    ASSERT_TRUE(
        QTest::qWaitFor([&] { return list.model()->rowCount() > 0 && list.currentIndex().isValid(); }));
    QTest::keyClick(&field, Qt::Key_Return);
  }

  GameFolder own;
};

TEST_F(TankJourney, APartOfItsNameAndEnterShowTheTank) {
  press(part<QTreeView>("FrmEdit", "TVMenu"), Qt::Key_P, Qt::ControlModifier);
  findAnything("FrmEdit", "crusad");
  EXPECT_TRUE(QTest::qWaitFor([] { return part<QLineEdit>("FrmEdit", "MHealth").text() == "480"; }));
  EXPECT_EQ(part<QTreeView>("FrmEdit", "TVMenu").currentIndex().data().toString(), "AmericaTankCrusader");
}

TEST_F(TankJourney, BackAndForwardLeadThroughAllWindows) {
  ASSERT_TRUE(program.mainWindow().showObject("Data\\INI\\Object\\FactionUnit.ini", "AmericaTankCrusader"));
  part<QTabWidget>("FrmEdit", "F_Tab").setCurrentIndex(2);
  press(part<QToolButton>("FrmEdit", "primaryLink"), Qt::Key_Space);
  ASSERT_TRUE(waitForTitle("FrmWE", "TankGun - Weapon Editor"));
  auto& rows = part<InPlaceTable>("FrmWE", "LVEdit");
  rows.setCurrentIndex(
      rows.model()->match(rows.model()->index(0, 0), Qt::DisplayRole, "Fire Sound").value(0));
  press(rows, Qt::Key_F4);
  ASSERT_TRUE(waitForTitle("FrmManEdit", "Manual Editor"));
  const auto isAtSound = [] { return part<QLabel>("FrmManEdit", "Panel1").text() == "Line 3 of 5"; };
  ASSERT_TRUE(QTest::qWaitFor(isAtSound));
  struct Step {
    const char* from;
    Qt::Key key;
    const char* to;
  };
  for (const Step& step :
       {Step{"FrmManEdit", Qt::Key_Left, "FrmWE"}, Step{"FrmWE", Qt::Key_Left, "FrmEdit"},
        Step{"FrmEdit", Qt::Key_Right, "FrmWE"}, Step{"FrmWE", Qt::Key_Right, "FrmManEdit"}}) {
    ASSERT_TRUE(waitForActive(step.from));
    QTest::keyClick(WindowNamed(step.from)->focusWidget(), step.key, Qt::AltModifier);
    EXPECT_TRUE(waitForActive(step.to)) << step.from;
  }
  EXPECT_TRUE(isAtSound());
}

TEST_F(TankJourney, AWindowsCommandsAreFoundOnceAndNoneThatItDoesNotOffer) {
  const auto offered = [](const char* window, const char* control, const QString& typed) {
    QWidget* start = &part<QWidget>(window, control);
    while (start->focusProxy() != nullptr) start = start->focusProxy();
    press(*start, Qt::Key_P, Qt::ControlModifier);
    auto& field = part<QLineEdit>(window, "findAnythingField");
    EXPECT_TRUE(QTest::qWaitFor([&] { return field.hasFocus(); }));
    QTest::keyClicks(&field, typed);
    const auto& model = *part<QListView>(window, "findAnythingList").model();
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) rows += model.index(row, 0).data().toString();
    QTest::keyClick(&field, Qt::Key_Escape);
    return rows.filter("Command");
  };
  program.showWeaponEditor();
  EXPECT_EQ(offered("FrmWE", "LstWPN", "Weapon in Manual"),
            QStringList("Edit Weapon in Manual Editor Command"));
  program.showManualEditor({.ManualEditFile = game.qpath() + "\\Data\\INI\\Weapon.ini"});
  ASSERT_TRUE(waitForTitle("FrmManEdit", "Manual Editor"));
  EXPECT_EQ(offered("FrmManEdit", "TxtManEdit", "comment"), QStringList("Toggle Comment Command Ctrl+/"));
  EXPECT_EQ(offered("FrmManEdit", "TxtManEdit", "extract"), QStringList()) << "the text is in no archive";
}

TEST_F(TankJourney, ADefinitionInAnUnsavedTextIsGoneToWhereItStandsNow) {
  const auto open = [this](const char* file) {
    program.showManualEditor({.ManualEditFile = game.qpath() + "\\Data\\INI\\" + file});
    ASSERT_TRUE(waitForTitle("FrmManEdit", "Manual Editor"));
  };
  open("Weapon.ini");
  open("SoundEffects.ini");
  QWidget& text = *part<QWidget>("FrmManEdit", "TxtManEdit").focusProxy();
  for (int i = 0; i < 2; ++i) press(text, Qt::Key_Return);
  press(text, Qt::Key_Tab, Qt::ControlModifier);
  static_cast<FrmManEdit*>(text.window())->goToLine(4);
  press(text, Qt::Key_End);
  EXPECT_TRUE(QTest::qWaitFor([&] {
    if (part<QTabBar>("FrmManEdit", "textTabs").currentIndex() == 0) press(text, Qt::Key_F4);
    return part<QLabel>("FrmManEdit", "Panel1").text().startsWith("Line 5 ");
  }));
  EXPECT_EQ(part<QTabBar>("FrmManEdit", "textTabs").currentIndex(), 1);
  press(text, Qt::Key_Left, Qt::AltModifier);
  EXPECT_EQ(part<QLabel>("FrmManEdit", "Panel1").text(), "Line 4 of 6");
}

// A unit is added by duplicating one, found while it is not saved yet, and saved, all with the keyboard.
TEST_F(TankJourney, ADuplicatedUnitIsFoundAtOnce) {
  program.showManualEditor({.ManualEditFile = game.qpath() + "\\Data\\INI\\Object\\FactionUnit.ini"});
  ASSERT_TRUE(waitForTitle("FrmManEdit", "Manual Editor"));
  QWidget& text = *part<QWidget>("FrmManEdit", "TxtManEdit").focusProxy();
  press(text, Qt::Key_P, Qt::ControlModifier);
  findAnything("FrmManEdit", "jeep");
  ASSERT_TRUE(waitForActive("FrmEdit"));
  program.showManualEditor({.ManualEditFile = game.qpath() + "\\Data\\INI\\Object\\FactionUnit.ini"});
  ASSERT_TRUE(waitForTitle("FrmManEdit", "Manual Editor"));
  press(text, Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
  auto& field = part<QLineEdit>("NewNameDialog", "newName");
  QTest::keyClicks(&field, "AmericaScout");
  QTest::keyClick(&field, Qt::Key_Return);
  press(text, Qt::Key_End, Qt::ControlModifier);
  press(text, Qt::Key_P, Qt::ControlModifier);
  findAnything("FrmManEdit", "scout");
  EXPECT_TRUE(
      QTest::qWaitFor([] { return part<QLabel>("FrmManEdit", "Panel1").text().startsWith("Line 5 "); }));
  press(text, Qt::Key_S, Qt::ControlModifier);
  EXPECT_EQ(
      game.read("Data/INI/Object/FactionUnit.ini").find("Object AmericaScout\r\n  MaxHealth = 90\r\nEnd"),
      45U);
  const auto isInTree = [](Program& asked) {
    const QAbstractItemModel& tree = asked.mainWindow().objects();
    return !tree.match(tree.index(0, 0), Qt::DisplayRole, "AmericaScout", 1, Qt::MatchRecursive).isEmpty();
  };
  EXPECT_FALSE(isInTree(program));
  Program next(services, folders, {});
  next.StartProgram();
  EXPECT_TRUE(isInTree(next));
}

TEST_F(TankJourney, EveryWindowFindsAnythingAndTexts) {
  struct Control {
    const char* window;
    const char* name;
  };
  program.showWeaponEditor();
  program.showManualEditor({.ManualEditFile = game.qpath() + "\\Data\\INI\\Weapon.ini"});
  ASSERT_TRUE(waitForTitle("FrmManEdit", "Manual Editor"));
  for (const Control& each :
       {Control{"FrmEdit", "TVMenu"}, Control{"FrmWE", "LstWPN"}, Control{"FrmManEdit", "TxtManEdit"}}) {
    const char* window = each.window;
    QWidget* start = &part<QWidget>(window, each.name);
    SCOPED_TRACE(window);
    while (start->focusProxy() != nullptr) start = start->focusProxy();
    press(*start, Qt::Key_P, Qt::ControlModifier);
    ASSERT_TRUE(QTest::qWaitFor([&] { return part<QListView>(window, "findAnythingList").isVisible(); }));
    EXPECT_TRUE(part<QLineEdit>(window, "findAnythingField").hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(part<QListView>(window, "findAnythingList").isVisible());
    EXPECT_EQ(QApplication::focusWidget(), start);
    press(*start, Qt::Key_F, Qt::ControlModifier | Qt::ShiftModifier);
    ASSERT_TRUE(QTest::qWaitFor([] { return VisibleWindow("UsesWindow") != nullptr; }));
    VisibleWindow("UsesWindow")->close();
  }
}

}  // namespace
}  // namespace korvane
