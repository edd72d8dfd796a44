// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QComboBox>
#include <QLabel>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "controls/FontDialog.h"
#include "options/FrmOpt.h"
#include "settings/SettingsStore.h"

namespace korvane {
namespace {

class FakeFontChooser : public FontChooser {
 public:
  FontRecord ShowFontDialog() override {
    meanwhile();
    return choice;
  }
  std::function<void()> meanwhile = [] {};
  FontRecord choice;
};

const FontRecord kChoice{.faceName = "DejaVu Serif",
                         .weight = 700,
                         .italic = 255,
                         .underline = 0,
                         .strikeOut = 1,
                         .tenthsOfPoint = 125};

class Options : public testing::Test {
 protected:
  void open() {
    window = std::make_unique<FrmOpt>(store, fonts);
    window->show();
  }
  QComboBox* tabs() const { return window->findChild<QComboBox*>("CboTab"); }
  QAbstractButton* button(const char* name) const { return window->findChild<QAbstractButton*>(name); }
  void click(const char* name) const { QTest::mouseClick(button(name), Qt::LeftButton); }
  void chooseFont(const FontRecord& choice) {
    fonts.choice = choice;
    button("BtnFont")->click();
  }
  QStringList labels() const {
    QStringList texts;
    for (int i = 0; i < 6; ++i) {
      texts += window->findChild<QLabel*>("LblFont" + QString::number(i))->text();
    }
    return texts;
  }

  QTemporaryDir folder;
  SettingsStore store{folder.path()};
  FakeFontChooser fonts;
  std::unique_ptr<FrmOpt> window;
};

TEST_F(Options, AnEmptyStoreShowsTheDefaults) {
  open();
  EXPECT_EQ(tabs()->currentText(), "Information");
  EXPECT_TRUE(button("ChkBox1")->isChecked());
  EXPECT_EQ(labels(), QStringList({"Font: 1", "Font Size: 1", "Bold: 1", "Underline: 1", "Italic: 1",
                                   "Strike-out: 1"}));
  EXPECT_FALSE(button("BtnApply")->isEnabled());
}

TEST_F(Options, StoredTextsThatMakeNoSenseLeaveTheirControlEmpty) {
  const struct {
    const char* tab;
    const char* exit;
    int index;
    bool ticked;
  } cases[] = {
      {"2", "0", 2, false}, {"7", "maybe", -1, false}, {"-4", "1", -1, true}, {"two", "", -1, false}};
  for (const auto& stored : cases) {
    store.SaveSet("InfoTab", stored.tab);
    store.SaveSet("Exit", stored.exit);
    open();
    EXPECT_EQ(tabs()->currentIndex(), stored.index) << stored.tab;
    EXPECT_EQ(button("ChkBox1")->isChecked(), stored.ticked) << stored.exit;
  }
}

TEST_F(Options, ApplyStoresTheTabAndTellsTheMainWindow) {
  open();
  const QSignalSpy applied(window.get(), &FrmOpt::optionsApplied);
  tabs()->setCurrentText("Weapons");
  EXPECT_TRUE(button("BtnApply")->isEnabled());
  click("BtnApply");
  EXPECT_EQ(store.GetSet("InfoTab"), "2");
  EXPECT_EQ(applied.count(), 1);
  EXPECT_FALSE(button("BtnApply")->isEnabled());
  EXPECT_TRUE(window->isVisible());

  button("ChkBox1")->click();
  EXPECT_TRUE(button("BtnApply")->isEnabled());
  click("BtnApply");
  EXPECT_EQ(store.GetSet("Exit"), "0");
}

TEST_F(Options, ABoxThatIsChangedIsStored) {
  const struct {
    const char* box;
    const char* setting;
    bool first;
  } boxes[] = {{"ChkRestoreLast", "RestoreLast", false}, {"ChkComplete", "CompleteWords", true}};
  for (const auto& each : boxes) {
    SCOPED_TRACE(each.box);
    open();
    EXPECT_EQ(button(each.box)->isChecked(), each.first);
    EXPECT_FALSE(button("BtnApply")->isEnabled());
    button(each.box)->click();
    EXPECT_TRUE(button("BtnApply")->isEnabled());
    click("BtnOK");
    EXPECT_EQ(store.GetSet(each.setting), each.first ? "0" : "1");
    open();
    EXPECT_EQ(button(each.box)->isChecked(), !each.first);
  }
}

TEST_F(Options, AChosenFontIsStoredByOk) {
  open();
  const QSignalSpy closed(window.get(), &FrmOpt::closedForGood);
  chooseFont(kChoice);
  EXPECT_EQ(labels(), QStringList({"Font: DejaVu Serif", "Font Size: 12.5", "Bold: True", "Underline: False",
                                   "Italic: True", "Strike-out: True"}));
  QTest::keyClick(window.get(), Qt::Key_Return);
  EXPECT_EQ(store.GetSet("MenuiFont"), "DejaVu Serif");
  EXPECT_EQ(store.GetSet("MenuiFontSize"), "12.5");
  EXPECT_EQ(store.GetSet("MenuiBold"), "True");
  EXPECT_EQ(store.GetSet("MenuiItalic"), "True");
  EXPECT_EQ(store.GetSet("MenuiUnderline"), "False");
  EXPECT_EQ(store.GetSet("MenuiStrikeout"), "True");
  EXPECT_EQ(closed.count(), 1);
  EXPECT_TRUE(store.find("EditWH", "FrmOpt_Left"));
}

TEST_F(Options, CancelStoresNothing) {
  open();
  const QSignalSpy applied(window.get(), &FrmOpt::optionsApplied);
  chooseFont(kChoice);
  tabs()->setCurrentIndex(0);
  QTest::keyClick(window.get(), Qt::Key_Escape);
  EXPECT_FALSE(window->isVisible());
  EXPECT_FALSE(store.find("Settings", "MenuiFont"));
  EXPECT_FALSE(store.find("Settings", "InfoTab"));
  EXPECT_EQ(applied.count(), 0);
}

TEST_F(Options, ACancelledFontDialogChangesNothing) {
  store.SaveSet("MenuiFont", "DejaVu Sans");
  open();
  const QStringList before = labels();
  chooseFont({});
  EXPECT_EQ(labels(), before);
  EXPECT_FALSE(button("BtnApply")->isEnabled());
  click("BtnOK");
  EXPECT_EQ(store.GetSet("MenuiFont"), "DejaVu Sans");
}

TEST_F(Options, AWindowClosedWhileAFontIsChosenGoesAfterIt) {
  open();
  const QSignalSpy closed(window.get(), &FrmOpt::closedForGood);
  fonts.meanwhile = [&] {
    window->close();
    EXPECT_EQ(closed.count(), 0);
  };
  chooseFont(kChoice);
  EXPECT_EQ(closed.count(), 1);
}

TEST_F(Options, AWindowClosedAndShownAgainWhileAFontIsChosenStays) {
  open();
  const QSignalSpy closed(window.get(), &FrmOpt::closedForGood);
  fonts.meanwhile = [&] {
    window->close();
    window->show();
  };
  chooseFont(kChoice);
  EXPECT_EQ(closed.count(), 0);
  click("BtnCancel");
  EXPECT_EQ(closed.count(), 1);
}

TEST_F(Options, TheSearchHistoryIsForgottenAtOnce) {
  open();
  button("Command1")->click();  // nothing to forget yet
  store.SaveList("Search List", {"Tank", "Truck"});
  button("Command1")->click();
  EXPECT_TRUE(store.LoadList("Search List").isEmpty());
  EXPECT_FALSE(store.find("Search List", "ItemNum"));
}

}  // namespace
}  // namespace korvane
