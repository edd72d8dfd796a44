// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QTest>
#include <QToolButton>
#include <QTreeView>

#include <memory>
#include <string>

#include "controls/InPlaceTable.h"
#include "mainwindow/FrmEdit.h"
#include "manualeditor/IniTextEdit.h"
#include "platform/FileWriter.h"
#include "platform/KeptVersions.h"
#include "startup/Program.h"
#include "support/TestDesk.h"
#include "support/Windows.h"

namespace korvane {
namespace {

const std::string kWeapons = "Weapon Gun\r\nEnd\r\n";

// How the table editors are wired to the main window and to their own dialogs.
class EditorWindowsTest : public testing::Test, protected TestDesk {
 protected:
  void SetUp() override {
    std::string armours = "Armor human\nEnd\nArmor TankArmor\nEnd\nArmor TankArmorHeavy\nEnd\n";
    for (int line = 0; line < 200; ++line) armours += "; long enough for events to run\n";
    game.ini("Armor.ini", armours);
  }

  static int armours() { return WindowNamed("FrmArmour")->findChild<QListView*>()->model()->rowCount(); }
  static QString selectedArmour() {
    const auto indexes =
        WindowNamed("FrmArmour")->findChild<QListView*>()->selectionModel()->selectedIndexes();
    return indexes.isEmpty() ? QString("none") : indexes.first().data().toString();
  }
  void chooseArmour(const char* name) {
    program.mainWindow().findChild<QComboBox*>("CboArmour")->setEditText(name);
  }
  static void closeAndWait(const char* name) {
    WindowNamed(name)->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  IniTextEdit& editedText() const {
    return *WindowNamed("FrmManEdit")->findChild<IniTextEdit*>("TxtManEdit");
  }
  // Into the weapon file, which the manual editor shows from then on.
  void type(const char* text) {
    game.write("Data/INI/Weapon.ini", kWeapons);
    program.mainWindow().show();
    program.showManualEditor({weapons});
    EXPECT_TRUE(QTest::qWaitFor([&] { return WindowNamed("FrmManEdit")->windowTitle() == "Manual Editor"; }));
    editedText().replaceSelection(text);
  }
  void exitBy(const char* command) {
    FrmEdit& window = program.mainWindow();
    command == nullptr ? static_cast<void>(window.close()) : window.findChild<QAction*>(command)->trigger();
  }
  // Nothing can be kept while the result is there.
  std::unique_ptr<QFile> blockKeeping() const {
    const QString folder = versions.folderOf(weapons);
    QDir(folder).removeRecursively();
    QDir().mkpath(QFileInfo(folder).path());
    auto inTheWay = std::make_unique<QFile>(folder);
    EXPECT_TRUE(inTheWay->open(QIODevice::WriteOnly));
    return inTheWay;
  }

  const QString weapons = game.qpath() + "\\Data\\INI\\Weapon.ini";
  Program program{services, folders, {}};
  FileWriter files;
  KeptVersions versions{files};
};

TEST_F(EditorWindowsTest, TheArmourEditorFollowsTheArmourListWhetherItIsOpenOrNot) {
  chooseArmour("tankarmor");
  program.mainWindow().findChild<QPushButton*>("Command2")->click();
  EXPECT_TRUE(WindowNamed("FrmArmour")->isVisible());
  EXPECT_EQ(selectedArmour(), "TankArmor");
  chooseArmour("TankArmorHeavy");
  EXPECT_EQ(selectedArmour(), "TankArmorHeavy");
  closeAndWait("FrmArmour");
  chooseArmour("Human");
  program.showArmourEditor();
  EXPECT_EQ(selectedArmour(), "human");
  chooseArmour("Tank");
  EXPECT_EQ(selectedArmour(), "none");
}

TEST_F(EditorWindowsTest, ClearingTheSearchHistoryEmptiesTheOpenManualEditorsList) {
  game.ini("Weapon.ini", "Weapon Gun\nEnd\n");
  program.showManualEditor({game.qpath() + "\\Data\\INI\\Weapon.ini"});
  auto* finds = WindowNamed("FrmManEdit")->findChild<QComboBox*>("CboFind");
  EXPECT_TRUE(QTest::qWaitFor([&] { return WindowNamed("FrmManEdit")->windowTitle() == "Manual Editor"; }));
  finds->addItem("Gun");
  program.showOptions();
  WindowNamed("FrmOpt")->findChild<QPushButton*>("Command1")->click();
  EXPECT_EQ(finds->count(), 0);
}

TEST_F(EditorWindowsTest, ExitKeepsWhatIsTypedAndAsksNothing) {
  type("typed");
  exitBy("MnuExit");
  EXPECT_EQ(process.ends, 1);
  EXPECT_TRUE(messages.asked.empty());
  const std::vector<KeptVersion> kept = KeptVersions::versionsIn(versions.folderOf(weapons));
  ASSERT_EQ(kept.size(), 1U);
  EXPECT_TRUE(KeptVersions::read(kept.front()).value_or(QString()).startsWith("typed"));
}

TEST_F(EditorWindowsTest, AProgramThatIsEndedKeepsWhatIsTyped) {
  type("typed");
  program.keepAtEnd();
  EXPECT_EQ(KeptVersions::versionsIn(versions.folderOf(weapons)).size(), 1U);
}

struct ExitCase {
  const char* exit;  // a command, or none: the window's title bar
  const char* answer;
  bool ends;
  bool isSaved;
};
// The command comes last: after it the window closes without a question.
constexpr ExitCase kExitCases[] = {
    {nullptr, "Cancel", false, false},
    {nullptr, "Save", true, true},
    {nullptr, "Close anyway", true, false},
    {"MnuExit", "Cancel", false, false},
    {"MnuExit", "", false, false},
    {"MnuExit", "Save", true, true},
    {"MnuExit", "Close anyway", true, false},
};

// The question comes before the command's first step, which stores where the window stands.
TEST_F(EditorWindowsTest, AnExitThatCannotKeepWhatIsTypedDoesAsTheUserSays) {
  for (const ExitCase& each : kExitCases) {
    SCOPED_TRACE(std::string(each.exit == nullptr ? "closing" : each.exit) + ", " + each.answer);
    settings.deleteSection("EditWH");
    process.ends = 0;
    messages.asked.clear();
    messages.answers = {each.answer};
    type("typed");
    const auto inTheWay = blockKeeping();
    exitBy(each.exit);
    ASSERT_EQ(messages.asked.size(), 1U);
    EXPECT_EQ(messages.asked[0].answers, QStringList({"Close anyway", "Save", "Cancel"}));
    EXPECT_EQ(process.ends, each.ends ? 1 : 0);
    EXPECT_EQ(settings.find("EditWH", "FrmEdit_Width").has_value(), each.ends);
    EXPECT_EQ(program.mainWindow().isVisible(), !each.ends);
    EXPECT_EQ(game.read("Data/INI/Weapon.ini"), each.isSaved ? "typed" + kWeapons : kWeapons);
    EXPECT_TRUE(each.ends || editedText().fileBytes().bytes == "typed" + kWeapons);
    inTheWay->remove();
    // What was given up is tried again at the next start.
    const KeptVersions next(files);
    EXPECT_EQ(next.recovered().size(), each.ends && !each.isSaved ? 1U : 0U);
    QDir(versions.folderOf(weapons)).removeRecursively();
    editedText().setUnmodified();
    closeAndWait("FrmManEdit");
  }
}

TEST_F(EditorWindowsTest, AFindingOpensItsPlaceAndTheStatusBarCountsThem) {
  game.ini("Weapon.ini", "Weapon Gun\n  PrimryDamage = 1\nEnd\n");
  auto* counts = program.mainWindow().findChild<QToolButton*>("problems");
  EXPECT_TRUE(counts->isHidden());
  program.mainWindow().findChild<QAction*>("checkData")->trigger();
  ASSERT_TRUE(QTest::qWaitFor([&] { return counts->text() == "1 error, 0 warnings"; }));
  EXPECT_FALSE(counts->isHidden());
  QTest::keyClick(VisibleWindow("ProblemsWindow")->findChild<QTreeView*>(), Qt::Key_Return);
  ASSERT_TRUE(QTest::qWaitFor([] { return VisibleWindow("FrmManEdit") != nullptr; }));
  const auto* text = VisibleWindow("FrmManEdit")->findChild<IniTextEdit*>("TxtManEdit");
  EXPECT_TRUE(QTest::qWaitFor([&] { return text->selectedText() == "PrimryDamage"; }));
  closeAndWait("ProblemsWindow");
  counts->click();
  EXPECT_NE(VisibleWindow("ProblemsWindow"), nullptr);
}

TEST_F(EditorWindowsTest, ADamageTypeIsAddedEvenWhenTheArmourEditorHasBeenClosed) {
  program.showArmourEditor();
  WindowNamed("FrmArmour")->findChild<QAction*>("Test")->trigger();
  closeAndWait("FrmArmour");
  WindowNamed("FrmAmrPar")->findChild<InPlaceTable*>("LV")->selectRow(4);
  WindowNamed("FrmAmrPar")->findChild<QPushButton*>("CmdOK")->click();
  ASSERT_NE(WindowNamed("FrmArmour"), nullptr);
  EXPECT_FALSE(WindowNamed("FrmArmour")->isVisible());
  EXPECT_EQ(WindowNamed("FrmArmour")->findChild<InPlaceTable*>("LVEdit")->row(0).caption, "GATTLING");
}

TEST_F(EditorWindowsTest, ADialogThatIsClosedWhileItsOkReadsTheEditorsFileStaysUntilThen) {
  program.showArmourEditor();
  WindowNamed("FrmArmour")->findChild<QAction*>("Test")->trigger();
  closeAndWait("FrmArmour");
  const QPointer<QWidget> dialog = WindowNamed("FrmAmrPar");
  dialog->findChild<InPlaceTable*>("LV")->selectRow(4);
  auto* ok = dialog->findChild<QPushButton*>("CmdOK");
  bool goneInside = false;
  yield.onTurn = [&] {
    dialog->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    goneInside = dialog.isNull();
  };
  ok->click();
  EXPECT_FALSE(yield.onTurn) << "no event ran while the file was read";
  EXPECT_FALSE(goneInside);
}

TEST_F(EditorWindowsTest, AFileThatIsOpenedWhileABlockIsReadIsNotOverwrittenByTheBlock) {
  std::string units = "Object Jeep\n  MaxHealth = 1\nEnd\n";
  for (int line = 0; line < 400; ++line) units += "; long enough for events to run\n";
  game.objects("FactionUnit.ini", units);
  game.ini("Weapon.ini", "Weapon Gun\nEnd\n");
  FrmEdit& main = program.mainWindow();
  main.objects().addNode({"FactionUnit.ini", "Player Units", "", "FactionUnit.ini"});
  main.objects().addNode(
      {"Key1", "Jeep", "FactionUnit.ini", "FactionUnit.ini", NodeKind::object, "Object\\FactionUnit.ini"});
  auto* tree = main.findChild<QTreeView*>("TVMenu");
  tree->setCurrentIndex(tree->model()->index(0, 0, tree->model()->index(0, 0)));
  yield.onTurn = [&] { main.findChild<QAction*>("MnuFileEdit13")->trigger(); };
  main.findChild<QPushButton*>("Btn_FEdit")->click();
  EXPECT_FALSE(yield.onTurn) << "no event ran while the block was read";
  QTest::qWait(10);
  WindowNamed("FrmManEdit")->findChild<QAction*>("MnuSave")->trigger();
  EXPECT_EQ(game.read("Data/INI/Weapon.ini"), "Weapon Gun\r\nEnd\r\n");
}

TEST_F(EditorWindowsTest, AnEditorClosedWhileItReadsItsListIsMadeAnewByTheNextUse) {
  program.mainWindow();
  yield.onTurn = [this] {
    program.showArmourEditor();
    WindowNamed("FrmArmour")->close();
  };
  program.showArmourEditor();
  EXPECT_FALSE(yield.onTurn) << "no event ran while the list was read";
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  EXPECT_EQ(WindowNamed("FrmArmour"), nullptr);
  program.showArmourEditor();
  EXPECT_EQ(armours(), 3);
}

}  // namespace
}  // namespace korvane
