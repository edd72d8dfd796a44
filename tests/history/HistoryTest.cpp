// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <Qsci/qsciscintilla.h>

#include "history/ForgetDialog.h"
#include "history/HistoryWindow.h"
#include "platform/FileWriter.h"
#include "platform/KeptVersions.h"
#include "support/TestDesk.h"
#include "textview/DifferenceView.h"

namespace korvane {
namespace {

const std::string kNow =
    GameFolder::CrLf("Weapon Gun\n  Damage = 30\n  Range = 5\nEnd\nWeapon Bow\n  Range = 9\nEnd\n");
const QString kForeign = QString::fromUtf8("Weapon Gun \u4e2d\r\n");

std::string With(std::string text, const std::string& before, const std::string& after) {
  return text.replace(text.find(before), before.size(), after);
}

// Weapon.ini with two versions that saves replaced, and others as a test wants.
class HistoryTest : public testing::Test, protected TestDesk {
 protected:
  void SetUp() override {
    game.write("Data/INI/Weapon.ini", kNow);
    keep("00000001 2026-01-02 10.00.00Z replaced", With(kNow, "30", "10"));
    keep("00000002 2026-01-03 10.00.00Z replaced", With(With(kNow, "30", "20"), "= 9", "= 8"));
  }

  void keep(const char* name, std::string_view bytes, const QString& of = {}) const {
    const QString file = of.isEmpty() ? path : of;
    const QString folder = versions.folderOf(file);
    ASSERT_TRUE(QDir().mkpath(folder));
    if (!QFile::exists(folder + "/path.txt")) write(folder + "/path.txt", file.toStdString());
    write(folder + '/' + name + ' ' + file.section('\\', -1), bytes);
  }
  static void write(const QString& file, std::string_view bytes) {
    QFile out(file);
    ASSERT_TRUE(out.open(QIODevice::WriteOnly));
    out.write(bytes.data(), static_cast<qint64>(bytes.size()));
  }
  void show() {
    window.showFile(path);
    window.show();
    waitForPair();
  }
  void choose(int version) {
    auto& list = part<QTreeWidget>("versions");
    list.setCurrentItem(list.topLevelItem(version));
    waitForPair();
  }
  void waitForPair() {
    ASSERT_TRUE(QTest::qWaitFor([this] { return part<QPushButton>("cancel").isHidden(); }));
  }
  template <typename Widget>
  Widget& part(const char* name) const {
    return *window.findChild<Widget*>(name);
  }
  DifferenceView& view() const { return part<DifferenceView>("difference"); }
  QString state() const { return part<QLabel>("state").text(); }
  void press(const char* name) const { part<QPushButton>(name).click(); }
  // One column of a list.
  QStringList column(const char* list, int number) const {
    QStringList texts;
    const auto& tree = part<QTreeWidget>(list);
    for (int i = 0; i < tree.topLevelItemCount(); ++i) texts += tree.topLevelItem(i)->text(number);
    return texts;
  }
  QStringList stored() const { return QDir(versions.folderOf(path)).entryList(QDir::Files, QDir::Name); }

  FileWriter files;
  KeptVersions versions{files, settingsFolder.filePath("versions")};
  FakeLauncher launcher;
  const QString path = game.qpath() + "\\Data\\INI\\Weapon.ini";
  HistoryWindow window{services, files, versions, launcher};
};

TEST_F(HistoryTest, ListsFilesAndVersionsWithWhatTheyAre) {
  keep("00000003 2026-01-04 10.00.00Z unsaved-part", "Weapon Bow\r\n  Range = 7\r\nEnd\r\n");
  keep("00000001 2026-01-04 10.00.00Z crashed", "x", "Z:\\other\\Data\\INI\\Armor.ini");
  show();
  EXPECT_EQ(column("files", 0), QStringList({"Weapon.ini", "Z:\\other\\Data\\INI\\Armor.ini"}));
  EXPECT_EQ(column("versions", 1), QStringList({"Present text", "Closed without saving, a part",
                                                "Replaced by a save", "Replaced by a save"}));
  EXPECT_EQ(column("versions", 3), QStringList({"0", "1", "2", "1"}));
  EXPECT_TRUE(part<QLabel>("spaceTaken").text().startsWith("4 versions of 2 files take "));
  EXPECT_TRUE(part<QLabel>("spaceTaken").text().endsWith(QDir::toNativeSeparators(versions.folder())));
}

TEST_F(HistoryTest, ChangesAreGroupedByBlockAndWalkedThrough) {
  show();
  EXPECT_EQ(column("changes", 0), QStringList({QString::fromUtf8("Weapon Gun: Damage 20 → 30"),
                                               QString::fromUtf8("Weapon Bow: Range 8 → 9")}));
  EXPECT_EQ(state(), "2 changes, 2 lines");
  EXPECT_EQ(view().currentChange(), 0);
  part<QAction>("nextChange").trigger();
  EXPECT_EQ(view().currentChange(), 1);
  EXPECT_EQ(view().presentLine(), 6u);
  part<QAction>("nextChange").trigger();
  EXPECT_EQ(view().currentChange(), 1) << "behind the last one there is none";
  part<QAction>("previousChange").trigger();
  EXPECT_EQ(part<QTreeWidget>("changes").currentItem()->text(0), column("changes", 0)[0]);
  auto& changes = part<QTreeWidget>("changes");
  changes.setCurrentItem(changes.topLevelItem(1));
  EXPECT_EQ(view().presentLine(), 6u);
  view().goToLines(0, 7);
  part<QAction>("previousChange").trigger();
  EXPECT_EQ(view().presentLine(), 6u) << "to the begin of the change first";
}

TEST_F(HistoryTest, AnyTwoVersionsAreCompared) {
  show();
  part<QComboBox>("against").setCurrentIndex(2);
  waitForPair();
  EXPECT_EQ(column("changes", 0)[0], QString::fromUtf8("Weapon Gun: Damage 20 → 10"));
  EXPECT_EQ(column("versions", 3), QStringList({"1", "2", "0"}));
  EXPECT_FALSE(part<QPushButton>("takeBack").isEnabled()) << "neither is the present text";
  choose(2);
  EXPECT_EQ(state(), "The texts are the same.");
}

TEST_F(HistoryTest, RestoringRewritesTheTextOfTheManualEditor) {
  launcher.unsavedText = kNow;
  show();
  choose(2);
  press("restore");
  EXPECT_TRUE(launcher.calls.isEmpty()) << "the question was answered by Cancel";
  messages.answers = {"Restore"};
  press("restore");
  EXPECT_EQ(launcher.calls, QStringList("rewrite " + path));
  EXPECT_EQ(launcher.rewritten, With(kNow, "30", "10"));
}

TEST_F(HistoryTest, OneChangeIsTakenBackInTheTextAsItIsByNow) {
  launcher.unsavedText = kNow;
  show();
  part<QAction>("nextChange").trigger();
  launcher.unsavedText = "; typed\r\n" + kNow;
  press("takeBack");
  EXPECT_EQ(launcher.rewritten, "; typed\r\n" + With(kNow, "= 9", "= 8"));
  waitForPair();
  launcher.unsavedText = With(kNow, "30", "31");
  part<QAction>("previousChange").trigger();
  press("takeBack");
  EXPECT_EQ(launcher.rewritten, std::nullopt);
  EXPECT_TRUE(state().startsWith("Nothing was changed")) << state().toStdString();
}

TEST_F(HistoryTest, APartOpensAsAPartAndNeverReplacesTheFile) {
  keep("00000003 2026-01-04 10.00.00Z unsaved-part-utf8", kForeign.toStdString());
  show();
  press("restore");
  ASSERT_EQ(launcher.requests.size(), 1u);
  EXPECT_EQ(launcher.calls, QStringList("manual text"));
  EXPECT_EQ(launcher.requests[0].ManualEditPartial, 1);
  EXPECT_EQ(launcher.requests[0].text, kForeign.toStdString());
  EXPECT_TRUE(launcher.requests[0].utf8);
}

TEST_F(HistoryTest, CopyAndSaveAsGiveAllCharactersOfAVersion) {
  keep("00000003 2026-01-04 10.00.00Z unsaved-utf8", kForeign.toStdString());
  show();
  press("copyButton");
  EXPECT_EQ(QGuiApplication::clipboard()->text(), kForeign);
  const QString file = settingsFolder.filePath("out.ini");
  ASSERT_TRUE(window.saveTo(file));
  QFile saved(file);
  ASSERT_TRUE(saved.open(QIODevice::ReadOnly));
  EXPECT_EQ(saved.readAll(), kForeign.toUtf8());
  EXPECT_FALSE(window.saveTo(settingsFolder.filePath("no such folder/out.ini")));
  EXPECT_EQ(messages.shown.size(), 1u);
}

TEST_F(HistoryTest, OnlyLinesOfTheTextAreCopied) {
  keep("00000003 2026-01-04 10.00.00Z unsaved", "; gone\r\n; gone too\r\n" + kNow);
  show();
  auto& present = part<QsciScintilla>("presentText");
  present.selectAll();
  press("copyButton");
  QString lines = QString::fromStdString(kNow).remove('\r');
  EXPECT_EQ(QGuiApplication::clipboard()->text().trimmed(), lines.trimmed());
}

TEST_F(HistoryTest, LookingWritesNothingIntoTheVersions) {
  const QStringList before = stored();
  show();
  for (const int version : {0, 1, 2}) choose(version);
  part<QAction>("lookAgain").trigger();
  waitForPair();
  EXPECT_EQ(stored(), before);
}

TEST_F(HistoryTest, AnyBytesAreShownOneToOne) {
  std::string bytes;
  for (int i = 0; i < 256; ++i) bytes += static_cast<char>(i);
  keep("00000003 2026-01-04 10.00.00Z replaced", bytes);
  game.write("Data/INI/Weapon.ini", bytes + "x");
  show();
  EXPECT_EQ(state(), "1 change, 1 line");
  part<QComboBox>("against").setCurrentIndex(1);
  waitForPair();
  EXPECT_EQ(state(), "The texts are the same.");
}

TEST_F(HistoryTest, ForgettingAsksAndKeepsTheNewestAndWhatWasNotSaved) {
  keep("00000003 2026-01-04 10.00.00Z unsaved", "a");
  keep("00000004 2026-01-05 10.00.00Z unsaved", "b");
  keep("00000001 2026-01-04 10.00.00Z crashed", "x", "Z:\\other\\Data\\INI\\Armor.ini");
  show();
  press("forgetVersions");
  auto* dialog = window.findChild<ForgetDialog*>();
  ASSERT_NE(dialog, nullptr);
  const auto counted = [&] { return dialog->findChild<QLabel*>("counted")->text(); };
  dialog->findChild<QDateEdit*>("date")->setDate(QDate(2026, 1, 3));
  EXPECT_TRUE(counted().startsWith("1 version, ")) << counted().toStdString();
  dialog->findChild<QDateEdit*>("date")->setDate(QDate(2027, 1, 1));
  EXPECT_TRUE(counted().startsWith("2 versions, ")) << counted().toStdString();
  EXPECT_FALSE(dialog->findChild<QCheckBox*>("unsaved")->isChecked());
  dialog->findChild<QCheckBox*>("unsaved")->click();
  EXPECT_TRUE(counted().startsWith("3 versions, ")) << counted().toStdString();
  dialog->findChild<QCheckBox*>("unsaved")->click();
  dialog->findChild<QPushButton*>("forget")->click();
  EXPECT_EQ(stored().filter("Weapon.ini").size(), 2);
  waitForPair();
  EXPECT_EQ(column("versions", 1).size(), 3);
}

}  // namespace
}  // namespace korvane
