// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QCompleter>
#include <QDir>
#include <QSignalSpy>
#include <QTest>

#include <filesystem>

#include "controls/FolderTree.h"
#include "controls/PathField.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

class FolderTreeTest : public testing::Test {
 protected:
  void SetUp() override {
    tree.resize(400, 400);
    tree.show();
    tree.setFocus();
  }

  void makeFolder(const char* name) const { fs::create_directories(disk.native(name)); }

  // Opens the place at the top, as a user does, and waits until all is read that the screen shows.
  void open(const QModelIndex& index) {
    tree.setCurrentIndex(index);
    QTest::keyClick(&tree, Qt::Key_Right);
    settle();
  }
  // Rows that come into sight are read ahead, which can bring more of them into sight.
  void settle() {
    QSignalSpy settled(static_cast<FolderModel*>(tree.model()), &FolderModel::settled);
    const auto* reading = tree.model()->findChild<QTimer*>();
    for (tree.grab(); reading->isActive(); tree.grab()) ASSERT_TRUE(settled.wait());
  }
  QModelIndex top() const { return tree.model()->index(0, 0); }

  QStringList names(const QModelIndex& parent) const {
    QStringList found;
    for (int row = 0; row < tree.model()->rowCount(parent); ++row) {
      found += tree.model()->index(row, 0, parent).data().toString();
    }
    return found;
  }
  QModelIndex child(const QModelIndex& parent, const QString& name) const {
    const auto row = names(parent).indexOf(name);
    return row < 0 ? QModelIndex() : tree.model()->index(static_cast<int>(row), 0, parent);
  }
  bool marked(const QString& name) const {
    return child(top(), name).data(Qt::FontRole).value<QFont>().bold();
  }

  PathField& field() { return *tree.findChild<PathField*>(); }

  GameFolder disk;
  FolderTree tree{{{"disk", disk.qpath(), QString::fromStdString(disk.native("").string()), {}}}};
};

TEST_F(FolderTreeTest, ShowsFoldersOnlyAndHiddenOnesLastAndDimmed) {
  makeFolder("Maps");
  makeFolder(".steam");
  makeFolder(".Cache");
  makeFolder("art");
  disk.write(".hidden.txt", "");
  disk.write("readme.txt", "");
  open(top());
  EXPECT_EQ(names(top()), (QStringList{"art", "Data", "Maps", ".Cache", ".steam"}));
  EXPECT_FALSE(child(top(), "Maps").data(Qt::ForegroundRole).isValid());
  EXPECT_TRUE(child(top(), ".steam").data(Qt::ForegroundRole).isValid());
}

// What a user types into the tree, and the text of the field that it opens; none where it opens none.
TEST_F(FolderTreeTest, KeysThatBeginAPathOpenTheField) {
  struct Case {
    const char* keys;
    const char* field;
  };
  ASSERT_TRUE(QTest::qWaitForWindowActive(&tree));
  for (const Case& c : {Case{"/", "/"}, {"~", "~"}, {"c:", "c:"}, {"ab:", ""}, {":", ""}, {"x", ""}}) {
    tree.setFocus();
    QTest::keyClick(&tree, Qt::Key_Home);  // ends what was typed before
    QTest::keyClicks(&tree, c.keys);
    EXPECT_EQ(field().isVisible(), *c.field != '\0') << c.keys;
    if (!field().isVisible()) continue;
    EXPECT_EQ(field().text(), c.field);
    QTest::keyClick(&field(), Qt::Key_Escape);
    EXPECT_FALSE(field().isVisible());
    EXPECT_TRUE(tree.hasFocus());
  }
}

TEST_F(FolderTreeTest, APathIsTypedWithCompletionAndRevealedAlsoInHiddenFolders) {
  makeFolder(".wine/drive_c/Games/Generals");
  makeFolder(".wine/drive_c/Grapes");
  open(top());
  tree.setCurrentIndex(top());
  QTest::keyClick(&tree, Qt::Key_L, Qt::ControlModifier);
  EXPECT_EQ(field().text().toStdString(), disk.native("").string());
  QTest::keyClicks(&field(), "~");
  EXPECT_EQ(field().text(), "~") << "a path from the home folder";
  QTest::keyClicks(&field(), "//");
  EXPECT_EQ(field().text(), "/") << "a path from the root";
  field().setText(QString::fromStdString(disk.native("").string()));
  QTest::keyClicks(&field(), ".wine/drive_c/g");
  EXPECT_EQ(field().completer()->completionCount(), 2);
  QTest::keyClicks(&field(), "o");
  QTest::keyClick(&field(), Qt::Key_Return);
  EXPECT_TRUE(field().isVisible()) << "there is no such folder";
  QTest::keyClick(&field(), Qt::Key_Backspace);
  QTest::keyClick(&field(), Qt::Key_Backspace);
  QTest::keyClicks(&field(), "Games/Generals");
  QSignalSpy selected(&tree, &FolderTree::folderSelected);
  QTest::keyClick(&field(), Qt::Key_Return);
  settle();
  EXPECT_FALSE(field().isVisible());
  EXPECT_TRUE(tree.hasFocus());
  EXPECT_EQ(tree.currentIndex().data(), "Generals");
  EXPECT_EQ(selected.last().first().toString(), disk.qpath() + "\\.wine\\drive_c\\Games\\Generals");
}

TEST_F(FolderTreeTest, TheKeyboardAloneReachesAFolderAndReportsItsFullPath) {
  EXPECT_FALSE(tree.selectionModel()->hasSelection());
  QSignalSpy selected(&tree, &FolderTree::folderSelected);
  open(top());
  QTest::keyClick(&tree, Qt::Key_Down);
  QTest::keyClick(&tree, Qt::Key_Right);
  settle();
  QTest::keyClick(&tree, Qt::Key_Right);
  ASSERT_EQ(selected.size(), 3);
  EXPECT_EQ(selected.last().first().toString(), disk.qpath() + "\\Data\\INI");
}

TEST_F(FolderTreeTest, AFolderWithTheGameStandsOutWhateverItsLetterCase) {
  disk.write("Small/generals.exe", "");
  disk.write("Mixed/GENERALS.Exe", "");
  disk.write("Other/generals.exe.bak", "");
  makeFolder("Folder/generals.exe");
  open(top());
  EXPECT_TRUE(marked("Small"));
  EXPECT_TRUE(marked("Mixed"));
  EXPECT_FALSE(marked("Other"));
  EXPECT_FALSE(marked("Folder"));
}

TEST_F(FolderTreeTest, AFolderWithoutFoldersCannotBeOpened) {
  makeFolder("empty");
  open(top());
  EXPECT_FALSE(tree.model()->hasChildren(child(top(), "empty")));
  EXPECT_TRUE(tree.model()->hasChildren(child(top(), "Data")));
}

TEST_F(FolderTreeTest, ClosingAFolderSelectsItAndOpeningItAgainShowsTheDiskAsItIsThen) {
  open(top());
  tree.setCurrentIndex(child(top(), "Data"));
  makeFolder("later");
  tree.collapse(top());
  EXPECT_EQ(tree.currentIndex(), top());
  open(top());
  EXPECT_TRUE(names(top()).contains("later"));
}

TEST_F(FolderTreeTest, OddFoldersDoNoHarm) {
  makeFolder("a\\b");
  makeFolder("line\nend");
  makeFolder("vanishing");
  fs::create_directory_symlink(".", disk.native("loop"));
  fs::create_directory_symlink("nowhere", disk.native("broken"));
  open(top());
  EXPECT_EQ(names(top()), (QStringList{"Data", QString("line") + QChar::ReplacementCharacter + "end", "loop",
                                       "vanishing"}));
  fs::remove(disk.native("vanishing"));
  open(child(top(), "vanishing"));
  QModelIndex loop = child(top(), "loop");
  for (int level = 0; level < 60 && loop.isValid(); ++level) {
    open(loop);
    loop = child(loop, "loop");
  }
  EXPECT_FALSE(loop.isValid()) << "the system ends a loop of links";
}

TEST_F(FolderTreeTest, AnotherClickOnTheSelectedFolderKeepsIt) {
  const QPoint place = tree.visualRect(top()).center();
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, place);
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, Qt::ControlModifier, place);
  QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, {200, 380});
  EXPECT_TRUE(tree.selectionModel()->isSelected(top()));
}

// With no time for a turn, every entry takes a turn of its own, as on a disk that is slow.
TEST_F(FolderTreeTest, EventsRunWhileAFolderIsRead) {
  constexpr int kFiles = 50;
  for (int i = 0; i < kFiles; ++i) disk.write("n" + std::to_string(i), "");
  FolderModel model({{"disk", disk.qpath(), QString::fromStdString(disk.native("").string()), {}}}, nullptr,
                    std::chrono::milliseconds(0));
  QSignalSpy settled(&model, &FolderModel::settled);
  model.look(model.index(0, 0));
  int turns = 0;
  for (; settled.isEmpty() && turns < 100 * kFiles; ++turns) QCoreApplication::processEvents();
  EXPECT_EQ(model.index(0, 0, model.index(0, 0)).data(), "Data");
  EXPECT_GT(turns, kFiles / 4);
}

// Otherwise the horizontal bar, hiding the very row that needs it, would come and go without end.
TEST_F(FolderTreeTest, ARowOutOfSightKeepsItsWidth) {
  for (int i = 0; i < 5; ++i) makeFolder(("a" + std::to_string(i)).c_str());
  makeFolder(("z" + std::string(100, 'w')).c_str());
  open(top());
  const QAbstractItemView& view = tree;
  const int width = view.sizeHintForColumn(0);
  tree.resize(200, 60);
  QTest::qWait(0);
  EXPECT_EQ(view.sizeHintForColumn(0), width);
}

#ifndef _WIN32

TEST(FolderPlaces, AWinePrefixMayHaveANameOfAnyBytes) {
  const GameFolder home;  // without a prefix of its own
  const GameFolder disk;
  const QByteArray oldHome = qgetenv("HOME");
  qputenv("HOME", home.native("").c_str());
  fs::create_directories(disk.native("\xff/dosdevices/c:"));
  qputenv("WINEPREFIX", disk.native("\xff").c_str());
  EXPECT_EQ(StandardPlaces().last().path, "C:\\");
  qunsetenv("WINEPREFIX");
  qputenv("HOME", oldHome);
  fs::remove_all(disk.native("\xff"));  // Qt cannot name it
}

TEST(FolderPlaces, LibrariesOfGamesArePlacesWhenTheyExist) {
  const GameFolder home;
  const GameFolder otherDisk;
  qputenv("HOME", home.native("").c_str());
  fs::create_directories(home.native(".local/share/Steam/steamapps/compatdata"));
  fs::create_directories(home.native(".local/share/Steam/steamapps/common"));
  fs::create_directories(home.native(".steam"));
  fs::create_directory_symlink("../.local/share/Steam", home.native(".steam/steam"));
  fs::create_directories(home.native(".var/app/com.usebottles.bottles/data/bottles/bottles"));
  fs::create_directories(otherDisk.native("steamapps/common"));
  home.write(
      ".local/share/Steam/steamapps/libraryfolders.vdf",
      "\"libraryfolders\"\n{\n \"1\"\n {\n  \"path\"  \"" + otherDisk.native("").string() + "\"\n }\n}\n");
  QStringList found;
  for (const FolderPlace& place : StandardPlaces()) found += place.native;
  const auto below = [](const GameFolder& folder, const char* path) {
    return QDir::cleanPath(QString::fromStdString(folder.native(path).string()));
  };
  EXPECT_EQ(found.mid(2), (QStringList{below(home, ".local/share/Steam/steamapps/common"),
                                       below(home, ".local/share/Steam/steamapps/compatdata"),
                                       below(otherDisk, "steamapps/common"),
                                       below(home, ".var/app/com.usebottles.bottles/data/bottles/bottles"),
                                       below(home, ".var/app")}));
}

#endif

}  // namespace
}  // namespace korvane
