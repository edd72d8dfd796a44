// SPDX-License-Identifier: GPL-3.0-or-later
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QToolBar>
#include <Qsci/qsciscintilla.h>

#include <filesystem>

#include "manualeditor/FrmManEdit.h"
#include "manualeditor/ManEditFixture.h"

namespace korvane {
namespace {

const std::string kFile =
    GameFolder::CrLf("Weapon Gun\n  Damage = 10 ; much\nEnd\nWeapon Knife\n  damage = 2\nEnd\n");

TEST_F(ManEditTest, OpeningShowsTheTextFromItsStart) {
  openFile(kFile);
  EXPECT_EQ(window_->windowTitle(), "Manual Editor");
  EXPECT_TRUE(window_->isEnabled());
  EXPECT_EQ(panel(1), "Line 1 of 7");
  EXPECT_EQ(panel(2), "Idle");
  EXPECT_TRUE(panel(3).startsWith("Time: "));
  EXPECT_TRUE(panel(4).startsWith("Date: "));
  EXPECT_EQ(panel(5), path_);
  EXPECT_EQ(QApplication::focusWidget(), text().focusProxy());
}

// Qt keeps a list of the windows that it still has to tell of an activation.
TEST_F(ManEditTest, NoEventsRunInsideOfTheActivation) {
  openFile(kFile);
  ASSERT_TRUE(window_->open({path_}));
  bool eventsRan = false;
  yield_.onTurn = [&] { eventsRan = true; };
  QEvent activation(QEvent::WindowActivate);
  QCoreApplication::sendEvent(window_.get(), &activation);
  EXPECT_FALSE(eventsRan);
  EXPECT_TRUE(WaitFor([this] { return window_->ManEditInitDone(); }));
}

// The names and captions of the actions that are seen, with an empty text for a separator.
QStringList Entries(const QList<QAction*>& actions) {
  QStringList entries;
  for (const QAction* action : actions) {
    if (!action->isVisible()) continue;
    const QString name = action->menu() == nullptr ? action->objectName() : action->menu()->objectName();
    entries += action->isSeparator() ? "" : name + ": " + action->text().remove('&');
  }
  return entries;
}

TEST_F(ManEditTest, EveryMenuEntryAndToolbarButtonHasItsNameAndPlace) {
  const std::pair<const char*, QStringList> kMenus[] = {
      {"MnuFile",
       {"MnuSave: Save", "showHistory: History...", "", "MnuExit: Exit", "", "reload: Reload",
        "menuRecent: Recent Files", "closeTab: Close Tab"}},
      {"MnuEdit",
       {"MnuUndo: Undo", "MnuRedo: Redo", "", "MnuCut: Cut", "MnuCopy: Copy", "MnuPaste: Paste",
        "MnuDelete: Delete", "", "MnuFind: Find...", "MnuFindNext: Find Next", "MnuReplace: Replace...", "",
        "MnuSelAll: Select All"}},
      {"MnuFormat", {"MnuFont: Fonts"}},
  };
  QStringList menus;
  for (const auto& [name, entries] : kMenus) {
    ASSERT_NE(part<QMenu>(name), nullptr) << name;
    EXPECT_EQ(Entries(part<QMenu>(name)->actions()), entries);
    menus += part<QMenu>(name)->title().remove('&');
  }
  EXPECT_EQ(menus, QStringList({"File", "Edit", "Format"}));
  const QList<QAction*> buttons = part<QToolBar>("TB1")->actions().first(6);
  EXPECT_EQ(Entries(buttons), QStringList({"Save: Save", "Cut: Cut", "Copy: Copy", "Paste: Paste",
                                           "Undo: Undo", "Redo: Redo"}));
  for (const QAction* button : buttons) EXPECT_EQ(button->toolTip(), button->objectName());
}

TEST_F(ManEditTest, AnotherOpeningKeepsThePlaceAndTheFindsOfTheOpenWindow) {
  openFile(kFile);
  find("Gun");
  window_->resize(window_->size() - QSize(70, 50));
  const QSize size = window_->size();
  openFile(kFile);
  EXPECT_EQ(window_->size(), size);
  EXPECT_EQ(part<QComboBox>("CboFind")->itemText(0), "Gun");
}

TEST_F(ManEditTest, ForgottenFindsAreGoneFromTheListButNotFromTheBox) {
  openFile(kFile);
  find("Gun");
  window_->forgetFinds();
  EXPECT_EQ(part<QComboBox>("CboFind")->count(), 0);
  EXPECT_EQ(part<QComboBox>("CboFind")->currentText(), "Gun");
  window_->close();
  EXPECT_TRUE(settings_.LoadList("Search List").isEmpty());
}

TEST_F(ManEditTest, APartShowsNoFileAndIsNeverSaved) {
  openFile(kFile);
  openPart("Weapon Gun\r\nEnd\r\n");
  EXPECT_EQ(panel(1), "Line 1 of 3");
  EXPECT_EQ(panel(5), "");
  type("x");
  trigger("MnuSave");
  ASSERT_EQ(messages_.shown.size(), 1U);
  EXPECT_EQ(messages_.shown[0].text,
            "Sorry, Command And Conquer Generals Korvane can only save 'Files' not 'Objects'");
  EXPECT_EQ(saved(), kFile);
  EXPECT_EQ(panel(2), "Idle");
}

TEST_F(ManEditTest, TheLineCounterFollowsTheCursorAndKeepsItsTotal) {
  openFile(kFile);
  QTest::keyClick(text().focusProxy(), Qt::Key_Down);
  EXPECT_EQ(panel(1), "Line 2 of 7");
  QTest::keyClick(text().focusProxy(), Qt::Key_Return);
  EXPECT_EQ(panel(1), "Line 3 of 7");
  find("Knife");
  EXPECT_EQ(panel(1), "Line 5 of 7");
}

TEST_F(ManEditTest, ALineThatWouldBlockTheWindowIsRefusedAndNothingChanges) {
  openFile(kFile);
  find("Knife");
  const QString armour = game_.qpath() + "\\Data\\INI\\Armor.ini";
  std::string manyLong;
  for (int i = 0; i < 40; ++i) manyLong += std::string(20'000, 'x') + "\r\n";
  for (const std::string& endless : {"a\r\n" + std::string(66'000, 'x') + "\r\n", manyLong}) {
    game_.write("Data/INI/Armor.ini", endless);
    EXPECT_FALSE(window_->open({armour}));
    EXPECT_FALSE(window_->open({armour, 1, endless}));
  }
  EXPECT_EQ(messages_.shown.size(), 4U);
  QEvent activation(QEvent::WindowActivate);
  QCoreApplication::sendEvent(window_.get(), &activation);
  QTest::qWait(10);  // a set-up would have run by now
  EXPECT_EQ(text().fileBytes().bytes, kFile);
  EXPECT_EQ(text().selectedText(), "Knife");
  EXPECT_EQ(part<QComboBox>("CboFind")->currentText(), "Knife");
  EXPECT_EQ(panel(1), "Line 4 of 7");
  EXPECT_EQ(panel(5), path_);
}

TEST_F(ManEditTest, AnOpeningAtAPlaceGoesThereAfterTheSetUp) {
  game_.write("Data/INI/Weapon.ini", "Weapon Gun\r\n ; \xE4\xFC =\tmuch\r\nEnd");
  const struct {
    ManualEditPlace place;
    const char *line, *selected;
  } kCases[] = {
      {{}, "Line 1 of 3", ""},
      {{.line = 2}, "Line 2 of 3", ""},
      {{.line = 2, .column = 9, .length = 4}, "Line 2 of 3", "much"},
      {{.line = 2, .column = 9, .length = 99}, "Line 2 of 3", "much"},
      {{.line = 2, .column = 99, .length = 4}, "Line 2 of 3", ""},
      {{.line = 3, .column = 2, .length = 99}, "Line 3 of 3", "nd"},
      {{.line = 99}, "Line 3 of 3", ""},
  };
  for (const auto& c : kCases) {
    ASSERT_TRUE(window_->open({.ManualEditFile = path_, .place = c.place}));
    show();
    EXPECT_EQ(panel(1), c.line) << c.place.line << ' ' << c.place.column;
    EXPECT_EQ(text().selectedText(), c.selected) << c.place.line << ' ' << c.place.column;
  }
}

TEST_F(ManEditTest, PlannedChangesAreOneStepToUndoAndTheFirstIsSelected) {
  const std::string before = "Weapon Gun\r\n ; \xE4\xFC =\tmuch\r\nEnd";
  const struct {
    std::vector<TextEdit> edits;
    std::string after;
    const char* selected;
  } kCases[] = {
      {{{2, 9, 4, "little"}, {1, 8, 3, "Bow"}}, "Weapon Bow\r\n ; \xE4\xFC =\tlittle\r\nEnd", "Bow"},
      {{{2, 99, 99, " ; \xE4"}}, "Weapon Gun\r\n ; \xE4\xFC =\tmuch ; \xE4\r\nEnd", ""},
      {{{2, 99, 0, "\r\n  New"}}, "Weapon Gun\r\n ; \xE4\xFC =\tmuch\r\n  New\r\nEnd", "  New"},
      {{{99, 1, 99, "END"}}, "Weapon Gun\r\n ; \xE4\xFC =\tmuch\r\nEND", "END"},
  };
  for (const auto& c : kCases) {
    openFile(before);
    std::string shown;
    const auto plan = [&](std::string_view bytes) {
      shown = bytes;
      return c.edits;
    };
    ASSERT_TRUE(window_->edit(path_, plan));
    EXPECT_EQ(shown, before);
    EXPECT_EQ(text().fileBytes().bytes, c.after);
    EXPECT_EQ(text().selectedText(), c.selected);
    EXPECT_TRUE(window_->hasUnsaved(path_));
    QTest::keyClick(text().focusProxy(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(text().fileBytes().bytes, before);
    EXPECT_EQ(saved(), before);
  }
}

TEST_F(ManEditTest, ChangesSeeWhatIsTypedAndGoToTheWholeFile) {
  openFile("End\r\n");
  type("x");
  text().replaceSelection(QStringLiteral("\u0416"));
  std::string shown;
  const auto none = [&](std::string_view bytes) {
    shown = bytes;
    return std::vector<TextEdit>();
  };
  EXPECT_FALSE(window_->edit(path_, none));
  EXPECT_EQ(shown, "x?End\r\n");
  openPart("End\r\n");
  EXPECT_EQ(window_->bytes(path_), "x?End\r\n");
  EXPECT_TRUE(window_->edit(path_, [](std::string_view) { return std::vector{TextEdit{1, 1, 2, "y"}}; }));
  EXPECT_EQ(panel(5), path_);
  EXPECT_EQ(text().fileBytes().bytes, "yEnd\r\n");
  trigger("nextTab");
  EXPECT_EQ(text().fileBytes().bytes, "End\r\n");
  trigger("previousTab");
  trigger("closeTab");
  EXPECT_FALSE(window_->bytes(path_));
  EXPECT_FALSE(window_->edit(path_, [](std::string_view) { return std::vector{TextEdit{1, 1, 3, "x"}}; }));
}

TEST_F(ManEditTest, AChangeBeforeTheSetUpIsGoneToAfterIt) {
  game_.write("Data/INI/Weapon.ini", kFile);
  ASSERT_TRUE(window_->open({path_}));
  ASSERT_TRUE(window_->edit(path_, [](std::string_view) { return std::vector{TextEdit{5, 12, 1, "34"}}; }));
  show();
  EXPECT_EQ(panel(1), "Line 5 of 7");
  EXPECT_EQ(text().selectedText(), "34");
}

TEST_F(ManEditTest, AWindowClosedDuringItsSetUpGoesAfterIt) {
  game_.write("Data/INI/Weapon.ini", kFile);
  ASSERT_TRUE(window_->open({path_}));
  bool heldBack = false;
  yield_.onTurn = [&] {
    window_->close();
    heldBack = closed_ == 0;
  };
  settings_.SaveList("Search List", {"a"});
  window_->show();
  EXPECT_TRUE(WaitFor([&] { return closed_ == 1; }));
  EXPECT_TRUE(heldBack);
  EXPECT_FALSE(window_->isVisible());
  EXPECT_EQ(settings_.LoadList("Search List"), QStringList("a"));
}

TEST_F(ManEditTest, ATextOpenedDuringTheSetUpIsSetUpToo) {
  yield_.onTurn = [&] { EXPECT_TRUE(window_->open({path_, 1, "one\r\ntwo"})); };
  openFile(kFile);
  EXPECT_EQ(panel(1), "Line 1 of 2");
}

TEST_F(ManEditTest, TheTitleTellsOfUnsavedText) {
  openFile(kFile);
  type("x");
  EXPECT_EQ(window_->windowTitle(), "Manual Editor*");
  EXPECT_FALSE(window_->isWindowModified());
  QTest::keyClick(text().focusProxy(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(window_->windowTitle(), "Manual Editor");
  type("x");
  trigger("MnuSave");
  EXPECT_EQ(window_->windowTitle(), "Manual Editor");
  std::filesystem::remove(game_.native("Data/INI/Weapon.ini"));
  QEvent activation(QEvent::WindowActivate);
  QCoreApplication::sendEvent(window_.get(), &activation);
  EXPECT_TRUE(WaitFor([this] { return window_->windowTitle() == "Manual Editor*"; }));
}

TEST_F(ManEditTest, PlacementComesBackBeforeTheWindowIsSeen) {
  openFile(kFile);
  window_->resize(700, 400);
  trigger("MnuExit");
  EXPECT_EQ(closed_, 1);
  remake();
  ASSERT_TRUE(window_->open({path_}));
  EXPECT_EQ(window_->size(), QSize(700, 400));
  show();
  EXPECT_EQ(window_->size(), QSize(700, 400));
}

TEST_F(ManEditTest, AMaximisedWindowStaysSoForTheNextFile) {
  openFile(kFile);
  window_->close();
  openFile(kFile);
  window_->showMaximized();
  QCoreApplication::processEvents();
  const QRect whole = window_->geometry();
  openFile(kFile);
  EXPECT_TRUE(window_->isMaximized());
  EXPECT_EQ(window_->geometry(), whole);
}

TEST_F(ManEditTest, ClipboardCommandsWorkOnTheSelection) {
  openFile("one two");
  QClipboard& clipboard = *QGuiApplication::clipboard();
  find("one");
  trigger("MnuCut");
  EXPECT_EQ(clipboard.text(), "one");
  clipboard.setText("a\nb");
  part<QAction>("Paste")->trigger();
  trigger("MnuSelAll");
  trigger("MnuCopy");
  EXPECT_EQ(clipboard.text(), "a\r\nb two");
  trigger("MnuDelete");
  EXPECT_EQ(text().fileBytes().bytes, "");
}

TEST_F(ManEditTest, UndoAndRedoOfTheWindowOnlyTell) {
  openFile("one");
  type("x");
  for (const char* name : {"MnuUndo", "MnuRedo", "Undo", "Redo"}) trigger(name);
  ASSERT_EQ(messages_.shown.size(), 4U);
  EXPECT_EQ(messages_.shown[0].text,
            "I am working on this feature, I will realease a new version as soon as I have finished it.\r\n"
            "If yoy want to use 'Undo', Right-click on some text and click on 'Undo'");
  EXPECT_EQ(text().fileBytes().bytes, "xone");
  QTest::keyClick(text().focusProxy(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(text().fileBytes().bytes, "one");
}

TEST_F(ManEditTest, TheChosenFontIsUsedAndComesBack) {
  openFile("one");
  const QFont before = text().textFont();
  fonts_.answer = FontRecord{.faceName = "No Such Font", .weight = 700, .strikeOut = 1, .tenthsOfPoint = 165};
  trigger("MnuFont");
  window_->close();
  remake();
  openFile("one");
  QFont expected = before;
  expected.setBold(true);
  expected.setStrikeOut(true);
  expected.setPointSizeF(16.5);
  EXPECT_EQ(text().textFont(), expected);
}

TEST_F(ManEditTest, ACancelledFontDialogChangesAndStoresNothing) {
  openFile("one");
  const QFont before = text().textFont();
  trigger("MnuFont");
  EXPECT_EQ(text().textFont(), before);
  EXPECT_EQ(settings_.GetSet("ManEditName", "none"), "none");
}

TEST_F(ManEditTest, APlaceIsShownWithTheHeaderOfItsBlock) {
  std::string file;
  for (int i = 0; i < 200; ++i) file += "; x\r\n";
  for (const int lines : {10, 100}) {
    file += "Object Tank\r\n  WeaponSet\r\n";
    for (int i = 0; i < lines; ++i) file += "    Weapon = PRIMARY A\r\n";
    file += "  End\r\nEnd\r\n";
  }
  openFile(file);
  const struct {
    int line;
    int header;  // that is seen with it
  } kCases[] = {{212, 201}, {220, 216}, {314, 314}};
  for (const auto& [line, header] : kCases) {
    text().moveToStart();
    ASSERT_TRUE(window_->goToIn(path_, {line, 5, 6}));
    EXPECT_EQ(text().selectedText(), "Weapon") << line;
    const auto top = text().view().send(QsciScintillaBase::SCI_GETFIRSTVISIBLELINE) + 1;
    const auto rows = text().view().send(QsciScintillaBase::SCI_LINESONSCREEN);
    EXPECT_LE(top, header) << line;
    EXPECT_LT(line, top + rows);
  }
}

// The entries at the menu's end when it is asked for at a place of the text, from 0.
QStringList MenuAt(const IniTextEdit& text, int line, int column) {
  using Sci = QsciScintillaBase;
  const auto& control = text.view().control();
  const qsizetype position = text.view().send(Sci::SCI_POSITIONFROMLINE, line) + column;
  const QPoint at(static_cast<int>(text.view().send(Sci::SCI_POINTXFROMPOSITION, 0, position)) + 1,
                  static_cast<int>(text.view().send(Sci::SCI_POINTYFROMPOSITION, 0, position)) + 3);
  QContextMenuEvent event(QContextMenuEvent::Mouse, at, control.viewport()->mapToGlobal(at));
  QApplication::sendEvent(control.viewport(), &event);
  auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
  if (menu == nullptr) return {};
  QStringList texts;
  for (const QAction* action : menu->actions()) texts += action->text().section('\t', 0, 0).remove('&');
  menu->close();
  return texts.mid(texts.size() - 5);
}

TEST_F(ManEditTest, TheContextMenuIsAboutTheNameThatItIsAskedForOn) {
  openFile("Weapon Gun\r\n  FireSound = Bang\r\nEnd\r\n");
  const QStringList entries{"Select All", "", "Go to Definition", "Find Uses", "Names Used by This Block"};
  EXPECT_EQ(MenuAt(text(), 1, 16), entries);
  ASSERT_TRUE(window_->nameHere());
  EXPECT_EQ(window_->nameHere()->name, "Bang");
  text().select({7, 10});
  EXPECT_EQ(MenuAt(text(), 0, 8), entries);
  EXPECT_EQ(text().selectedText(), "Gun");
  MenuAt(text(), 1, 3);
  EXPECT_EQ(text().selectedText(), "");
  EXPECT_EQ(text().cursorLine(), 1);
}

}  // namespace
}  // namespace korvane
