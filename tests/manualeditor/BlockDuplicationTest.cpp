// SPDX-License-Identifier: GPL-3.0-or-later
#include <QDialogButtonBox>

#include "manualeditor/ManEditFixture.h"
#include "manualeditor/NewNameDialog.h"

namespace korvane {
namespace {

const std::string kGun = GameFolder::CrLf("Weapon Gun\n  FireFX = FX_Bang\n  ClipSize = 3\nEnd\n");
const std::string kFile = kGun + GameFolder::CrLf("\nWeapon LongBow\nEnd\nWeapon Open\n");

class BlockDuplicationTest : public ManEditTest {
 protected:
  void openAt(int line) {
    game_.ini("FXList.ini", "FXList FX_Bang\nEnd\n");
    openFile(kFile);
    ASSERT_TRUE(WaitFor([this] { return names_.isCurrent(); }));
    text().goTo(line, 0, 0);
  }
  NewNameDialog* ask() const {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);  // the dialog before
    trigger("duplicateBlock");
    return window_->findChild<NewNameDialog*>();
  }
  static QPushButton* ok(const NewNameDialog& dialog) {
    return dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
  }
  static QString reason(const NewNameDialog& dialog) { return dialog.findChild<QLabel*>("reason")->text(); }
  static void answer(NewNameDialog& dialog, const QString& name) {
    auto* field = dialog.findChild<QLineEdit*>("newName");
    field->clear();
    QTest::keyClicks(field, name);
    QTest::keyClick(field, Qt::Key_Return);
  }
  bool known(const char* name) const {
    return names_.withUnsaved()->defines(GameStructure::get().space("Weapon"), name);
  }
};

TEST_F(BlockDuplicationTest, CopiesTheBlockBehindItselfAndSaysWhatToChange) {
  openAt(2);
  answer(*ask(), "Crossbow");
  std::string copy = kGun;
  copy.replace(copy.find("Gun"), 3, "Crossbow");
  EXPECT_EQ(text().fileBytes().bytes, kGun + "\r\n" + copy + kFile.substr(kGun.size()));
  EXPECT_EQ(text().selectedText(), "Crossbow");
  EXPECT_EQ(notices(), QStringList("Weapon Crossbow is a copy of Gun. Worth changing in it too: FX_Bang. "
                                   "Find Anything finds it at once."));
  EXPECT_TRUE(known("Crossbow"));
  EXPECT_FALSE(names_.catalogue()->defines(GameStructure::get().space("Weapon"), "Crossbow"));
  QTest::keyClick(text().focusProxy(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(text().fileBytes().bytes, kFile) << "one step to undo";
  EXPECT_FALSE(known("Crossbow"));
  EXPECT_TRUE(WaitFor([this] { return notices().isEmpty(); }));
}

TEST_F(BlockDuplicationTest, ANameThatCannotBeHadIsRefusedWithTheReason) {
  openAt(0);
  NewNameDialog* dialog = ask();
  ASSERT_NE(dialog, nullptr);
  EXPECT_EQ(reason(*dialog), "There is Weapon Gun in line 1.");
  EXPECT_FALSE(ok(*dialog)->isEnabled());
  answer(*dialog, "Long");
  EXPECT_TRUE(reason(*dialog).startsWith("This is the beginning of Weapon LongBow in line 6"));
  EXPECT_TRUE(dialog->isVisible()) << "Enter takes no name that is refused";
  EXPECT_EQ(text().fileBytes().bytes, kFile);
  answer(*dialog, "Short");
  EXPECT_FALSE(dialog->isVisible());
  EXPECT_NE(text().fileBytes().bytes, kFile);
}

TEST_F(BlockDuplicationTest, WhereThereIsNothingToCopyTheNoticeBarSaysWhy) {
  const struct {
    int line;
    const char* reason;
  } cases[] = {{4, "There is no block here."}, {7, "Weapon Open in line 8 has no End."}};
  openAt(0);
  for (const auto& each : cases) {
    text().goTo(each.line, 0, 0);
    EXPECT_EQ(ask(), nullptr);
    EXPECT_EQ(notices(), QStringList(each.reason));
  }
  openPart(kGun);
  EXPECT_EQ(ask(), nullptr);
  EXPECT_EQ(notices(), QStringList("Only blocks of a whole file that can be saved are duplicated."));
}

TEST_F(BlockDuplicationTest, WhatIsSavedOrThrownAwayIsNotNewAnyLonger) {
  openAt(0);
  answer(*ask(), "Crossbow");
  ASSERT_TRUE(known("Crossbow"));
  window_->save();
  EXPECT_FALSE(known("Crossbow")) << "the file counts from now on";
  text().goTo(0, 0, 0);
  answer(*ask(), "Sling");
  ASSERT_TRUE(known("Sling"));
  window_->close();
  EXPECT_FALSE(known("Sling"));
}

TEST_F(BlockDuplicationTest, WhatIsSaidAndNewIsTheTabsOwn) {
  openAt(0);
  answer(*ask(), "Crossbow");
  const QStringList said = notices();
  game_.ini("Other.ini", "Weapon Sword\nEnd\n");
  ASSERT_TRUE(window_->open({game_.qpath() + "\\Data\\INI\\Other.ini"}));
  show();
  EXPECT_EQ(notices(), QStringList());
  EXPECT_TRUE(known("Crossbow")) << "though another tab is shown";
  NewNameDialog* dialog = ask();
  ASSERT_NE(dialog, nullptr);
  answer(*dialog, "Crossbow");
  EXPECT_EQ(reason(*dialog), "There is Weapon Crossbow in Data\\INI\\Weapon.ini, line 6.");
  answer(*dialog, "Sabre");
  trigger("previousTab");
  EXPECT_EQ(notices(), said);
  EXPECT_TRUE(known("Sabre"));
  trigger("closeTab");
  EXPECT_FALSE(known("Crossbow"));
  EXPECT_TRUE(known("Sabre"));
}

}  // namespace
}  // namespace korvane
