// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QFile>
#include <QLabel>
#include <QListView>
#include <QPointer>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

#include <csignal>

#include "controls/NoticeBar.h"
#include "ini/DataFiles.h"
#include "mainwindow/FrmEdit.h"
#include "platform/KeptVersions.h"
#include "platform/UnsavedJournal.h"
#include "startup/EndSignals.h"
#include "startup/Program.h"
#include "stock/StockFiles.h"
#include "stock/StockTable.h"
#include "support/TestDesk.h"
#include "support/Windows.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace korvane {
namespace {

// The program's own folder and the game folder are two small folders of the test.
class StartProgramTest : public testing::Test, protected TestDesk {
 protected:
  void SetUp() override {
    qputenv("HOME", own.native("").string().c_str());
    qputenv("XDG_DATA_HOME", own.native("home").string().c_str());
    folders.program = own.qpath();
    packStock();
    game.write("generals.exe", "");
    game.objects("FactionUnit.ini", "Object GLABike\n  MaxHealth = 90\nEnd\n");
    game.ini("Weapon.ini", "Weapon Gun\nEnd\n");
  }
  void packStock() {
    StockTable table(own.native("Data"));
    table.add("Data\\INI\\Armor.ini", "Armor Plate\r\nEnd\r\n");
    table.commit();
  }
  void chooseGame() { settings.saveGameFolder(game.qpath()); }
  void start(const QString& arguments = {}) {
    program = std::make_unique<Program>(services, folders, arguments);
    program->StartProgram();
  }

  // Opens the folders on the way and gives the node of the path, which begins at the root.
  static QModelIndex reach(QTreeView& folders, const QString& path) {
    const QAbstractItemModel& model = *folders.model();
    const auto child = [&model](const QModelIndex& parent, const QString& name) {
      return model.match(model.index(0, 0, parent), Qt::DisplayRole, name, 1, Qt::MatchExactly).value(0);
    };
    QModelIndex at = child({}, "/");
    for (const QString& name : path.split(u'\\', Qt::SkipEmptyParts)) {
      folders.expand(at);
      if (!QTest::qWaitFor([&] { return child(at, name).isValid(); })) return {};
      at = child(at, name);
    }
    return at;
  }
  static void pressInWizard(const char* button) {
    VisibleWindow("frmWizard")->findChild<QPushButton*>(button)->click();
  }
  // From the introduction to the folder step, with the folder chosen there.
  static void chooseInWizard(const GameFolder& folder) {
    QWidget* wizard = VisibleWindow("frmWizard");
    ASSERT_NE(wizard, nullptr);
    const auto* next = wizard->findChild<QPushButton*>("cmdNav3");
    pressInWizard("cmdNav3");
    EXPECT_FALSE(next->isEnabled());
    auto* folders = wizard->findChild<QTreeView*>("BrowseTree");
    const QModelIndex node = reach(*folders, folder.qpath());
    ASSERT_TRUE(node.isValid());
    folders->setCurrentIndex(node);
    EXPECT_TRUE(QTest::qWaitFor([&] { return next->isEnabled(); }));
  }
  void expectWindows(bool editor, bool wizard) {
    EXPECT_EQ(VisibleWindow("FrmEdit") != nullptr, editor);
    EXPECT_EQ(VisibleWindow("frmWizard") != nullptr, wizard);
    EXPECT_EQ(VisibleWindow("frmSplash"), nullptr);
  }

  GameFolder own;
  std::unique_ptr<Program> program;
};

TEST_F(StartProgramTest, AStoredGameFolderOpensTheEditor) {
  chooseGame();
  start();
  expectWindows(true, false);
  EXPECT_TRUE(messages.shown.empty());
  EXPECT_EQ(program->mainWindow().weaponNames(), QStringList{"Gun"});
  EXPECT_EQ(settings.get("TVPos", "Pos", {}), "1");
  EXPECT_EQ(program->mainWindow().findChild<QLabel*>("Panel1")->text(), "");
}

TEST_F(StartProgramTest, AFileThatWasCutOffInPlaceIsNamedWithItsFormerVersion) {
  chooseGame();
  const QString path = game.qpath() + "\\Data\\INI\\Weapon.ini";
  const FileWriter writer;
  const KeptVersions versions(writer);
  FormerVersion former(versions, path, "Weapon Old\r\nEnd\r\n");
  ASSERT_EQ(former.keep(ReplaceWay::inPlace), "");
  UnsavedJournal(versions).note({path, false, "Weapon New\r\nEnd\r\n", former.file()});
  start();
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_TRUE(messages.shown[0].text.contains(path) && messages.shown[0].text.contains(former.file()));
}

#ifndef _WIN32

TEST(EndSignals, AreTakenAsEventsOnce) {
  for (const int signal : {SIGTERM, SIGHUP, SIGINT}) {
    EndSignals endSignals;
    QSignalSpy asked(&endSignals, &EndSignals::asked);
    std::raise(signal);
    ASSERT_TRUE(asked.isEmpty() && asked.wait());
    EXPECT_EQ(asked[0][0].toInt(), signal);
    const pid_t child = fork();
    if (child == 0) {
      std::raise(signal);
      _exit(0);
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_TRUE(WIFSIGNALED(status) && WTERMSIG(status) == signal);
  }
}

#endif

TEST_F(StartProgramTest, WithoutAStoredFolderTheWizardRuns) {
  start();
  expectWindows(false, true);
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text,
            "C:\\Program Files\\EA Games\\Command and Conquer Generals\\Data\\INI does not exist, \r\n"
            "Command And Conquer Generals Korvane will now run the setup wizard.");
}

TEST_F(StartProgramTest, AFolderWithoutDataRunsTheWizardAndStaysStored) {
  settings.saveGameFolder("C:\\nowhere");
  start();
  expectWindows(false, true);
  EXPECT_EQ(settings.gameFolder(), "C:\\nowhere");
}

TEST_F(StartProgramTest, TheSwitchAloneRunsTheWizard) {
  struct Case {
    const char* arguments;
    bool wizard;
  };
  for (const Case& c : {Case{"-REINSTALL", true}, Case{"-Reinstall now", false}, Case{"/Reinstall", false}}) {
    chooseGame();
    start(c.arguments);
    SCOPED_TRACE(c.arguments);
    expectWindows(!c.wizard, c.wizard);
    program.reset();
  }
}

TEST_F(StartProgramTest, MissingStockDataStopsTheProgram) {
  chooseGame();
  QFile::remove(QString::fromStdString(own.native("Data.DBF").string()));
  own.write("Data.DBT", "");  // of length 0, but there
  start();
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(
      messages.shown[0].text,
      "The following files are missing:\r\n" + own.qpath() +
          "\\Data.DBF\r\n\r\nPlease re-install Command And Conquer Generals Korvane or send a E-mail to "
          "support@ferncastle.example to get a download link to the files.");
  EXPECT_EQ(messages.shown[0].title, "Error");
  EXPECT_EQ(messages.shown[0].helpTopic, 62);
  EXPECT_TRUE(messages.shown[0].systemModal);
  EXPECT_EQ(process.ends, 1);
  expectWindows(false, false);
}

TEST_F(StartProgramTest, AManifestIsDeletedAndStopsTheProgram) {
  chooseGame();
  own.write("Korvane.exe.manifest", "x");
  QFile::remove(QString::fromStdString(own.native("Data.DBF").string()));
  start();
  ASSERT_EQ(messages.shown.size(), 1U);
  EXPECT_EQ(messages.shown[0].text,
            own.qpath() +
                "\\Korvane.exe.manifest has been detected,\r\nThis file will be deleted, Click OK and Run "
                "Command And Conquer Generals Korvane again.");
  EXPECT_EQ(process.ends, 1);
  EXPECT_FALSE(std::filesystem::exists(own.native("Korvane.exe.manifest")));
}

TEST_F(StartProgramTest, EscapeDuringLoadingEndsWithoutTheMainWindow) {
  chooseGame();
  yield.onTurn = [this] {
    yield.onTurn = [] {
      if (QWidget* splash = VisibleWindow("frmSplash")) QTest::keyClick(splash, Qt::Key_Escape);
    };
  };
  start();
  EXPECT_EQ(process.ends, 1);
  expectWindows(false, false);
}

TEST_F(StartProgramTest, DataFilesThatAreMissingAreNamed) {
  for (const DataFile& file : kDataFiles) {
    if (file.name != kArmorFile) game.write(std::string("Data/INI/Object/").append(file.name), "");
    if (file.name != kArmorFile) game.write(std::string("Data/INI/").append(file.name), "");
  }
  chooseGame();
  start();
  const auto* bar = program->mainWindow().findChild<NoticeBar*>();
  EXPECT_EQ(bar->sentences(), QStringList{"1 file is missing in the game folder: Armor.ini."});
  program.reset();
  std::filesystem::remove(game.native("Data/INI/Weapon.ini"));
  start();
  EXPECT_EQ(program->mainWindow().findChild<NoticeBar*>()->sentences(),
            QStringList{"2 files are missing in the game folder: Weapon.ini, Armor.ini."});
}

TEST_F(StartProgramTest, AClickThatComesAfterTheCloseStartsNothing) {
  game.ini("Armor.ini", "Armor Plate\nEnd\n");
  chooseGame();
  start();
  program->showArmourEditor();
  const QPointer<QWidget> editor = VisibleWindow("FrmArmour");
  ASSERT_TRUE(editor);
  editor->close();
  ASSERT_TRUE(editor);  // gone only when the events of now are over
  auto* list = editor->findChild<QListView*>("LstWPN");
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualRect(list->model()->index(0, 0)).center());
  EXPECT_EQ(editor->windowTitle(), "Armour Editor");
}

TEST_F(StartProgramTest, TheWizardLeadsFromAnEmptyStoreToTheEditor) {
  start("-Reinstall");
  chooseInWizard(game);
  pressInWizard("cmdNav3");
  EXPECT_EQ(game.read("Data/INI/Armor.ini"), "Armor Plate\r\nEnd\r\n");
  pressInWizard("cmdNav3");
  pressInWizard("cmdNav4");
  expectWindows(true, false);
  EXPECT_FALSE(program->mainWindow().findChild<QTreeView*>("TVMenu")->font().strikeOut());
  EXPECT_EQ(settings.gameFolder(), game.qpath());
  EXPECT_EQ(process.ends, 0);
}

TEST_F(StartProgramTest, AGameThatHasOnlyItsArchivesStartsWithItsOwnObjects) {
  std::filesystem::remove_all(game.native("Data"));
  StockTable table(own.native("Data"));
  StockRecords archived;
  for (const DataFile& file : kDataFiles) {
    const std::string path = std::string(file.folder.substr(1)).append(file.name);
    table.add(path, "Object Sample\r\nEnd\r\n");
    const bool holdsObjects = file.folder == kObjectFolder;
    archived.emplace_back(path, holdsObjects ? "Object GLABike\r\nEnd\r\n" : "");
  }
  table.commit();
  game.write("INI.big", ArchiveBytes(archived));
  start();
  chooseInWizard(game);
  for (const char* button : {"cmdNav3", "cmdNav3", "cmdNav4"}) pressInWizard(button);
  expectWindows(true, false);
  const QAbstractItemModel& objects = *program->mainWindow().findChild<QTreeView*>("TVMenu")->model();
  const auto count = [&](const char* name) {
    return objects
        .match(objects.index(0, 0), Qt::DisplayRole, name, -1, Qt::MatchExactly | Qt::MatchRecursive)
        .size();
  };
  EXPECT_EQ(count("GLABike"), static_cast<qsizetype>(kObjectFiles.size()));
  EXPECT_EQ(count("Sample"), 0);
}

}  // namespace
}  // namespace korvane
