// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/Completion.h"
#include "manualeditor/ManEditFixture.h"
#include "manualeditor/ProposalList.h"

namespace korvane {
namespace {

constexpr const char* kTank = "Object Tank\r\n  WeaponSet\r\n    Weapon = PRIMARY \r\n  End\r\n  \r\nEnd\r\n";
constexpr int kValueLine = 2;
constexpr int kKeyLine = 4;

class CompletionTest : public ManEditTest {
 protected:
  // The file with the cursor at the end of a line, and all names known.
  void openAt(int line, std::string_view bytes = kTank) {
    game_.ini("AFile.ini",
              "Weapon CrusaderGun\nEnd\nWeapon CrusaderGunUpgraded\nEnd\nWeapon PaladinGun\nEnd\n");
    openFile(bytes);
    ASSERT_TRUE(WaitFor([this] { return names_.isCurrent(); }));
    goToEndOf(line);
    window_->activateWindow();
  }
  void goToEndOf(int line) const { text().goTo(line, 10'000, 0); }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
    QTest::keyClick(text().focusProxy(), key, modifiers);
  }
  void ask() const { press(Qt::Key_Space, Qt::ControlModifier); }

  // What the list shows; empty when it is hidden.
  QStringList shown() const {
    const auto* list = window_->findChild<ProposalList*>();
    QStringList rows;
    if (!list->isVisible()) return rows;
    for (int row = 0; row < list->model()->rowCount(); ++row)
      rows += list->model()->index(row, 0).data().toString();
    return rows;
  }
  QString chosen() const { return window_->findChild<ProposalList*>()->chosen(); }
  QString line(int number) const {
    const std::string all(text().utf8());
    return QString::fromStdString(all).split("\r\n").value(number);
  }
};

TEST_F(CompletionTest, AListComesByItselfAfterThreeLetters) {
  openAt(kValueLine);
  type("Cr");
  EXPECT_EQ(shown(), QStringList());
  type("u");
  EXPECT_EQ(shown(), QStringList({"CrusaderGun", "CrusaderGunUpgraded"}));
  type("saderGunU");
  EXPECT_EQ(shown(), QStringList({"CrusaderGunUpgraded"}));
  press(Qt::Key_Tab);
  EXPECT_EQ(line(kValueLine), "    Weapon = PRIMARY CrusaderGunUpgraded");
  EXPECT_EQ(shown(), QStringList());
  press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(line(kValueLine), "    Weapon = PRIMARY CrusaderGunU") << "one step to undo";
}

TEST_F(CompletionTest, AListThatCameByItselfLeavesTheTextItsKeys) {
  const struct {
    Qt::Key key;
    int line;  // of the cursor afterwards
    QString text;
  } cases[] = {{Qt::Key_Up, kValueLine - 1, "    Weapon = PRIMARY Cru"},
               {Qt::Key_Down, kValueLine + 1, "    Weapon = PRIMARY Cru"},
               {Qt::Key_Return, kValueLine + 1, "    Weapon = PRIMARY Cru"},
               {Qt::Key_Escape, kValueLine, "    Weapon = PRIMARY Cru"},
               {Qt::Key_Space, kValueLine, "    Weapon = PRIMARY Cru "},
               {Qt::Key_Left, kValueLine, "    Weapon = PRIMARY Cru"},
               {Qt::Key_Tab, kValueLine, "    Weapon = PRIMARY CrusaderGun"}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.key);
    openAt(kValueLine);
    type("Cru");
    ASSERT_EQ(shown().size(), 2);
    press(each.key);
    EXPECT_TRUE(WaitFor([this] { return shown().isEmpty(); }));
    EXPECT_EQ(text().cursorLine(), each.line);
    EXPECT_EQ(line(kValueLine), each.text);
    text().setUnmodified();
    window_->close();
    remake();
  }
}

TEST_F(CompletionTest, InAListThatWasAskedForTheArrowsAndEnterChoose) {
  for (const bool cameByItself : {false, true}) {
    SCOPED_TRACE(cameByItself);
    openAt(kValueLine);
    type(cameByItself ? "Cru" : "Cr");
    EXPECT_EQ(shown().isEmpty(), !cameByItself);
    ask();
    ASSERT_EQ(shown(), QStringList({"CrusaderGun", "CrusaderGunUpgraded"}));
    press(Qt::Key_Down);
    EXPECT_EQ(chosen(), "CrusaderGunUpgraded");
    press(Qt::Key_Up);
    EXPECT_EQ(chosen(), "CrusaderGun");
    press(Qt::Key_PageDown);
    press(Qt::Key_Return);
    EXPECT_EQ(line(kValueLine), "    Weapon = PRIMARY CrusaderGunUpgraded");
    EXPECT_EQ(text().cursorLine(), kValueLine);
    text().setUnmodified();
    window_->close();
    remake();
  }
}

TEST_F(CompletionTest, TheListFollowsWhatIsTyped) {
  openAt(kValueLine);
  ask();
  EXPECT_EQ(shown().first(3), QStringList({"CrusaderGun", "CrusaderGunUpgraded", "None"}));
  type("pa");
  EXPECT_EQ(shown(), QStringList("PaladinGun"));
  press(Qt::Key_Backspace);
  EXPECT_TRUE(WaitFor([this] { return shown().size() > 1; }));
  press(Qt::Key_Backspace);
  press(Qt::Key_Backspace);
  EXPECT_TRUE(WaitFor([this] { return shown().isEmpty(); })) << "another word";
}

TEST_F(CompletionTest, ChangesTheWholeWordAtTheCursor) {
  openAt(kValueLine, "Object Tank\r\n  WeaponSet\r\n    Weapon = PRIMARY CruGun ; old\r\n  End\r\nEnd\r\n");
  text().goTo(kValueLine, 24, 0);
  ask();
  press(Qt::Key_Return);
  EXPECT_EQ(line(kValueLine), "    Weapon = PRIMARY CrusaderGun ; old");
}

TEST_F(CompletionTest, KnowsTheUnsavedTextAndNotWhatItReplaces) {
  openAt(kValueLine, std::string(kTank) + "Weapon SavedGun\r\nEnd\r\n");
  text().goTo(6, 0, 0);
  text().replaceSelection("Weapon TypedGun\nEnd\n");
  text().goTo(8, 7, 8);
  type("Renamed");
  ASSERT_EQ(line(8), "Weapon Renamed");
  goToEndOf(kValueLine);
  ASSERT_TRUE(WaitFor([this] {
    ask();
    return shown().contains("Renamed");
  })) << "a moment after the edit";
  EXPECT_TRUE(shown().contains("TypedGun"));
  EXPECT_FALSE(shown().contains("SavedGun"));
  EXPECT_TRUE(shown().contains("PaladinGun"));
}

TEST_F(CompletionTest, KnowsTheUnsavedTextsOfOtherTabs) {
  openAt(0);
  ASSERT_TRUE(window_->open({game_.qpath() + "\\Data\\INI\\AFile.ini"}));
  show();
  text().goTo(0, 7, 11);
  type("Laser");
  trigger("previousTab");
  goToEndOf(kValueLine);
  ask();
  EXPECT_TRUE(shown().contains("Laser"));
  EXPECT_FALSE(shown().contains("CrusaderGun"));
  trigger("nextTab");
  EXPECT_EQ(shown(), QStringList()) << "the list was for the other text";
  trigger("closeTab");
  ask();
  EXPECT_TRUE(shown().contains("CrusaderGun")) << "as the file has it";
  EXPECT_FALSE(shown().contains("Laser"));
  ASSERT_TRUE(window_->open({game_.qpath() + "\\Data\\INI\\AFile.ini"}));
  show();
  text().goTo(1, 0, 0);
  ask();
  ASSERT_FALSE(shown().isEmpty());
  trigger("closeTab");
  EXPECT_EQ(shown(), QStringList());
  EXPECT_EQ(text().utf8(), kTank);
}

TEST_F(CompletionTest, IsSilentWhereNothingIsWanted) {
  openAt(kKeyLine);
  type("BuildCost");
  EXPECT_EQ(shown(), QStringList()) << "the word is complete";
  type(" = 100 ; Bui");
  EXPECT_EQ(shown(), QStringList()) << "a comment";
  press(Qt::Key_Return);
  type("Buil");
  EXPECT_FALSE(shown().isEmpty());
  press(Qt::Key_Escape);
  type("d");
  EXPECT_EQ(shown(), QStringList()) << "the user did not want it for this word";
  ask();
  EXPECT_FALSE(shown().isEmpty());
  press(Qt::Key_Escape);
  press(Qt::Key_Return);
  settings_.SaveSet("CompleteWords", "0");
  QEvent activated(QEvent::WindowActivate);
  QCoreApplication::sendEvent(window_.get(), &activated);
  QCoreApplication::processEvents();
  type("Buil");
  EXPECT_EQ(shown(), QStringList()) << "the option";
  ask();
  EXPECT_FALSE(shown().isEmpty());
}

TEST_F(CompletionTest, AnArchivesTextIsNotWrittenIn) {
  openAt(kValueLine);
  text().setReadOnly(true);
  ask();
  EXPECT_EQ(shown(), QStringList());
}

TEST_F(CompletionTest, TheListGoesWithTheText) {
  openAt(kKeyLine);
  for (const auto& leave : std::initializer_list<std::function<void()>>{
           [this] {
             QTest::mouseClick(text().focusProxy(), Qt::LeftButton, {}, {200, 10});
           },
           [this] { part<QComboBox>("CboFind")->setFocus(); }, [this] { window_->hide(); }}) {
    window_->show();
    text().setFocus();
    goToEndOf(kKeyLine);
    ask();
    ASSERT_FALSE(shown().isEmpty());
    leave();
    EXPECT_TRUE(WaitFor([this] { return shown().isEmpty(); }));
  }
}

TEST_F(CompletionTest, AClickTakesAProposal) {
  openAt(kValueLine);
  ask();
  auto* list = window_->findChild<ProposalList*>();
  QTest::mouseClick(list->viewport(), Qt::LeftButton, {},
                    list->visualRect(list->model()->index(1, 0)).center());
  EXPECT_EQ(line(kValueLine), "    Weapon = PRIMARY CrusaderGunUpgraded");
}

}  // namespace
}  // namespace korvane
