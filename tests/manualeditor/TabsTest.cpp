// SPDX-License-Identifier: GPL-3.0-or-later
#include <QMimeData>
#include <QTabBar>
#include <Qsci/qsciscintilla.h>

#include <filesystem>

#include "manualeditor/LineMarks.h"
#include "manualeditor/ManEditFixture.h"

namespace korvane {
namespace {

namespace fs = std::filesystem;

using Sci = QsciScintillaBase;

class TabsTest : public ManEditTest {
 protected:
  QString pathOf(const char* name) const { return game_.qpath() + "\\Data\\INI\\" + name; }
  static std::string relative(const char* name) { return std::string("Data/INI/") + name; }
  static std::string textOf(const char* name) {
    return GameFolder::CrLf("Weapon " + std::string(name) + "\n  Damage = 10\nEnd\n");
  }

  void write(const char* name, std::string_view bytes) const { game_.write(relative(name), bytes); }
  void open(const char* name) {
    if (!fs::exists(game_.native(relative(name)))) write(name, textOf(name));
    ASSERT_TRUE(window_->open({pathOf(name)}));
    show();
  }
  // Three files, the last one shown.
  void openThree() {
    for (const char* name : kThree) open(name);
  }
  // Each with its name typed in front of its text.
  void typeInThree() {
    for (const char* name : kThree) {
      open(name);
      type(QString("%1 ").arg(name));
    }
  }
  static std::string typed(const char* name) { return name + std::string(" ") + textOf(name); }

  QTabBar& row() const { return *part<QTabBar>("textTabs"); }
  QStringList tabs() const {
    QStringList captions;
    for (int i = 0; i < row().count(); ++i) captions += row().tabText(i);
    return captions;
  }
  QString shownTab() const { return row().tabText(row().currentIndex()); }
  void go(int tab) const { row().setCurrentIndex(tab); }
  std::string shown() const { return text().fileBytes().bytes; }
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers) const {
    QTest::keyClick(text().focusProxy(), key, modifiers);
  }
  qsizetype send(unsigned message, qsizetype first = 0) const { return text().view().send(message, first); }
  void activate() const {
    QEvent activation(QEvent::WindowActivate);
    QCoreApplication::sendEvent(window_.get(), &activation);
    QCoreApplication::processEvents();
  }
  // Of a file, each as its kind and its text, the newest first.
  QStringList keptOf(const char* name) const {
    QStringList texts;
    for (const KeptVersion& version : KeptVersions::versionsIn(versions_.folderOf(pathOf(name))))
      texts += (version.kind == KeptVersion::Kind::replaced ? "replaced: " : "unsaved: ") +
               KeptVersions::read(version).value_or("unreadable");
    return texts;
  }
  static QStringList unsaved(const char* name) { return {"unsaved: " + QString::fromStdString(typed(name))}; }
  std::unique_ptr<QFile> blockKeeping(const char* name) const {
    EXPECT_TRUE(QDir(folder_.path()).mkpath("versions"));
    auto inTheWay = std::make_unique<QFile>(versions_.folderOf(pathOf(name)));
    EXPECT_TRUE(inTheWay->open(QIODevice::WriteOnly));
    return inTheWay;
  }
  void drop(const QList<QUrl>& urls) const {
    QMimeData data;
    data.setUrls(urls);
    data.setText("not this");
    QWidget* target = static_cast<QAbstractScrollArea*>(text().focusProxy())->viewport();
    QDragEnterEvent enter({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent event({5, 5}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(target, &event);
    EXPECT_TRUE(WaitFor([this] { return row().count() > 1 && window_->ManEditInitDone(); }));
  }

  static constexpr std::array kThree = {"One.ini", "Two.ini", "Three.ini"};
};

TEST_F(TabsTest, TheRowIsSeenFromTheSecondFileOn) {
  open("One.ini");
  EXPECT_FALSE(row().isVisible());
  EXPECT_EQ(text().y(), 0);
  open("Two.ini");
  EXPECT_TRUE(row().isVisible());
  EXPECT_EQ(text().y(), row().height());
  EXPECT_EQ(tabs(), QStringList({"One.ini", "Two.ini"}));
  press(Qt::Key_W, Qt::ControlModifier);
  QCoreApplication::processEvents();
  EXPECT_FALSE(row().isVisible());
  EXPECT_EQ(text().y(), 0);
  EXPECT_EQ(panel(5), pathOf("One.ini"));
}

TEST_F(TabsTest, KeysGoRoundTheTabsAndCloseThem) {
  openThree();
  QStringList way;
  for (int i = 0; i < 3; ++i) {
    press(Qt::Key_Tab, Qt::ControlModifier);
    way += shownTab();
  }
  press(Qt::Key_Backtab, Qt::ControlModifier | Qt::ShiftModifier);
  EXPECT_EQ(way + QStringList(shownTab()), QStringList({"One.ini", "Two.ini", "Three.ini", "Two.ini"}));
  EXPECT_EQ(QApplication::focusWidget(), text().focusProxy());
  for (int left = 2; left >= 0; --left) {
    press(Qt::Key_W, Qt::ControlModifier);
    EXPECT_EQ(row().count(), std::max(left, 1));
    EXPECT_EQ(closed_, left == 0 ? 1 : 0);
  }
}

TEST_F(TabsTest, TheKeyboardIsInTheTextOfTheTabThatAKeyLeadsTo) {
  openThree();
  window_->activateWindow();
  for (const char* command : {"nextTab", "previousTab", "closeTab"}) {
    part<QComboBox>("CboFind")->setFocus();
    ASSERT_TRUE(WaitFor([this] { return part<QComboBox>("CboFind")->hasFocus(); }));
    const QKeyCombination keys = part<QAction>(command)->shortcut()[0];
    QTest::keyClick(QApplication::focusWidget(), keys.key(), keys.keyboardModifiers());
    EXPECT_EQ(QApplication::focusWidget(), text().focusProxy()) << command;
  }
}

// The state of a tab, as its user sees it.
struct Seen {
  std::string text;
  QString line, file, selected;
  qsizetype topLine, folded, mark, modified;
  bool operator==(const Seen&) const = default;
};

TEST_F(TabsTest, EachTabHasAllThatIsItsOwn) {
  const auto seen = [this] {
    return Seen{shown(),
                panel(1),
                panel(5),
                text().selectedText(),
                send(Sci::SCI_GETFIRSTVISIBLELINE),
                send(Sci::SCI_CONTRACTEDFOLDNEXT, 0),
                text().lineMarks().next(0),
                send(Sci::SCI_GETMODIFY)};
  };
  std::string lines;
  for (int i = 0; i < 200; ++i) lines += textOf(("Gun" + std::to_string(i)).c_str());
  write("One.ini", lines);
  open("One.ini");
  text().lineMarks().toggle(7);
  press(Qt::Key_End, Qt::ControlModifier);
  type("x");
  text().goTo(500, 2, 6);
  send(Sci::SCI_FOLDLINE, 3);
  const Seen one = seen();
  open("Two.ini");
  text().goTo(1, 2, 3);
  const Seen two = seen();
  EXPECT_EQ(two.line, "Line 2 of 4");
  EXPECT_EQ(two.folded, -1);
  EXPECT_EQ(two.mark, -1);
  go(0);
  EXPECT_EQ(seen(), one);
  go(1);
  EXPECT_EQ(seen(), two);
  // Undo of one takes back nothing of the other.
  press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(seen(), two);
  go(0);
  press(Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(shown(), lines);
  EXPECT_EQ(send(Sci::SCI_GETMODIFY), 0);
}

TEST_F(TabsTest, TitleAndCaptionsTellOfEveryUnsavedText) {
  openThree();
  go(1);
  type("x");
  EXPECT_EQ(tabs(), QStringList({"One.ini", "Two.ini*", "Three.ini"}));
  go(0);
  EXPECT_EQ(window_->windowTitle(), "Manual Editor*");
  go(1);
  trigger("MnuSave");
  EXPECT_EQ(tabs(), QStringList({"One.ini", "Two.ini", "Three.ini"}));
  EXPECT_EQ(window_->windowTitle(), "Manual Editor");
}

TEST_F(TabsTest, OpeningAgainLoadsAnewUnlessTextIsUnsaved) {
  openThree();
  write("One.ini", "changed\r\n");
  open("One.ini");
  EXPECT_EQ(row().count(), 3);
  EXPECT_EQ(shown(), "changed\r\n");
  type("x");
  go(2);
  ASSERT_TRUE(window_->open({.ManualEditFile = pathOf("one.INI"), .place = {.line = 1, .column = 3}}));
  EXPECT_EQ(shown(), "xchanged\r\n");
  EXPECT_EQ(send(Sci::SCI_GETCURRENTPOS), 2);
  EXPECT_EQ(notices(), QStringList("One.ini has unsaved text, so it was not loaded again."));
  go(2);
  EXPECT_EQ(notices(), QStringList());
  go(0);
  trigger("MnuSave");
  EXPECT_EQ(notices(), QStringList());
  EXPECT_TRUE(keptOf("One.ini").contains("replaced: changed\r\n"));
}

TEST_F(TabsTest, PartsHaveTabsOfTheirOwn) {
  openFile("Weapon Gun\r\nEnd\r\nWeapon Knife\r\nEnd\r\n");
  openPart("Weapon Gun\r\nEnd\r\n");
  openPart("Weapon Knife\r\nEnd\r\n");
  EXPECT_EQ(tabs(), QStringList({"Weapon.ini", "Weapon Gun", "Weapon Knife"}));
  type("x");
  ASSERT_TRUE(window_->open({path_, 1, "Weapon Gun\r\n  Damage = 1\r\nEnd\r\n"}));
  show();
  EXPECT_EQ(shown(), "Weapon Gun\r\n  Damage = 1\r\nEnd\r\n");
  ASSERT_TRUE(window_->open({path_, 1, "Weapon Knife\r\nEnd\r\n"}));
  EXPECT_EQ(shown(), "xWeapon Knife\r\nEnd\r\n");
  EXPECT_EQ(row().count(), 3);
  trigger("MnuSave");
  EXPECT_EQ(messages_.shown.size(), 1U);
  EXPECT_EQ(panel(5), "");
  EXPECT_EQ(saved(), "Weapon Gun\r\nEnd\r\nWeapon Knife\r\nEnd\r\n");
}

TEST_F(TabsTest, FilesOfOneNameAreToldApart) {
  fs::create_directories(game_.native("Data/INI/Object"));
  write("Object/One.ini", "");
  open("One.ini");
  ASSERT_TRUE(window_->open({game_.qpath() + "\\Data\\INI\\Object\\One.ini"}));
  EXPECT_EQ(tabs(), QStringList({"One.ini (INI)", "One.ini (Object)"}));
}

TEST_F(TabsTest, SavingWritesTheShownTextToItsOwnFileAndNothingElse) {
  typeInThree();
  for (const int tab : {1, 2, 0}) {
    go(tab);
    trigger("MnuSave");
    EXPECT_EQ(game_.read(relative(kThree[static_cast<std::size_t>(tab)])),
              typed(kThree[static_cast<std::size_t>(tab)]));
    EXPECT_EQ(game_.read(relative("One.ini")), tab == 0 ? typed("One.ini") : textOf("One.ini"));
  }
  EXPECT_TRUE(messages_.asked.empty());
}

TEST_F(TabsTest, ClosingTheWindowKeepsEveryUnsavedText) {
  typeInThree();
  openPart("part");
  type("x");
  open("Four.ini");
  go(1);
  window_->close();
  EXPECT_EQ(closed_, 1);
  for (const char* name : kThree) EXPECT_EQ(keptOf(name), unsaved(name)) << name;
  EXPECT_EQ(keptTexts(), QStringList("unsaved: xpart"));
  EXPECT_EQ(keptOf("Four.ini"), QStringList());
  for (const char* name : kThree) EXPECT_EQ(game_.read(relative(name)), textOf(name));
}

TEST_F(TabsTest, AProgramThatIsEndedKeepsEveryUnsavedText) {
  typeInThree();
  window_->keepAtEnd();
  for (const char* name : kThree) EXPECT_EQ(keptOf(name), unsaved(name)) << name;
  EXPECT_EQ(shownTab(), "Three.ini*");
}

TEST_F(TabsTest, ATextBehindAnotherThatCannotBeKeptHoldsTheWindowAndIsShown) {
  typeInThree();
  const auto inTheWay = blockKeeping("Two.ini");
  const std::function<bool()> endings[] = {[this] { return window_->close(); },
                                           [this] { return window_->keepUnsavedTexts(); }};
  for (const auto& end : endings) {
    go(0);
    messages_.asked.clear();
    messages_.answers = {"Cancel"};
    EXPECT_FALSE(end());
    ASSERT_EQ(messages_.asked.size(), 1U);
    EXPECT_TRUE(messages_.asked[0].text.contains(pathOf("Two.ini")));
    EXPECT_TRUE(window_->isVisible());
    EXPECT_EQ(shown(), typed("Two.ini"));
  }
  messages_.answers = {"Save"};
  go(0);
  EXPECT_TRUE(window_->close());
  EXPECT_EQ(game_.read(relative("Two.ini")), typed("Two.ini"));
  for (const char* name : {"One.ini", "Three.ini"}) EXPECT_EQ(game_.read(relative(name)), textOf(name));
}

TEST_F(TabsTest, WhatIsTypedIsNotedForEveryTabWhicheverIsShown) {
  typeInThree();
  const QDir drafts(folder_.filePath("versions/open"));
  EXPECT_TRUE(WaitFor([&] { return drafts.entryList({"*.journal"}, QDir::Files).size() == 3; }, 1500));
  // As after a crash: nobody holds the drafts any more.
  QDir().mkpath(folder_.filePath("crashed/open"));
  for (const QString& draft : drafts.entryList({"*.journal"}, QDir::Files)) {
    QFile::copy(drafts.filePath(draft), folder_.filePath("crashed/open/" + draft));
  }
  const KeptVersions next(files_, folder_.filePath("crashed"));
  QStringList recovered;
  for (const auto& each : next.recovered())
    recovered += KeptVersions::read(each.version).value_or("unreadable");
  recovered.sort();
  QStringList all;
  for (const char* name : kThree) all += QString::fromStdString(typed(name));
  all.sort();
  EXPECT_EQ(recovered, all);
}

TEST_F(TabsTest, AFileBehindThatAnotherProgramChangedIsLoadedOnceItIsShown) {
  openThree();
  write("One.ini", "changed\r\n");
  activate();
  EXPECT_EQ(shown(), textOf("Three.ini"));
  EXPECT_EQ(notices(), QStringList());
  go(0);
  EXPECT_EQ(shown(), "changed\r\n");
  EXPECT_EQ(panel(1), "Line 1 of 2");
  EXPECT_EQ(notices(), QStringList("One.ini was changed by another program and is loaded anew."));
}

TEST_F(TabsTest, AnUnsavedTextBehindIsNeitherLoadedOverNorSavedOverAnotherProgramsUnasked) {
  typeInThree();
  write("One.ini", "changed\r\n");
  activate();
  go(0);
  EXPECT_EQ(shown(), typed("One.ini"));
  messages_.answers = {"Cancel"};
  trigger("MnuSave");
  EXPECT_EQ(messages_.asked.size(), 1U);
  EXPECT_EQ(game_.read(relative("One.ini")), "changed\r\n");
}

TEST_F(TabsTest, AFileBehindThatVanishedIsUnsavedAndKept) {
  openThree();
  fs::remove(game_.native(relative("One.ini")));
  activate();
  EXPECT_EQ(tabs(), QStringList({"One.ini*", "Two.ini", "Three.ini"}));
  window_->close();
  EXPECT_EQ(keptOf("One.ini"), QStringList("unsaved: " + QString::fromStdString(textOf("One.ini"))));
}

TEST_F(TabsTest, ClosingATabKeepsItsTextAndOnlyThat) {
  typeInThree();
  Q_EMIT row().tabCloseRequested(0);
  EXPECT_EQ(tabs(), QStringList({"Two.ini*", "Three.ini*"}));
  EXPECT_EQ(shown(), typed("Three.ini"));
  EXPECT_EQ(keptOf("One.ini"), unsaved("One.ini"));
  EXPECT_EQ(keptOf("Two.ini"), QStringList());
  press(Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(shown(), typed("Two.ini"));
  EXPECT_EQ(keptOf("Three.ini"), unsaved("Three.ini"));
  const auto inTheWay = blockKeeping("Two.ini");
  press(Qt::Key_W, Qt::ControlModifier);
  EXPECT_EQ(closed_, 0);
  EXPECT_EQ(shown(), typed("Two.ini"));
}

TEST_F(TabsTest, AMovedTabKeepsItsText) {
  typeInThree();
  row().moveTab(0, 2);
  EXPECT_EQ(tabs(), QStringList({"Two.ini*", "Three.ini*", "One.ini*"}));
  for (const auto& [tab, name] : {std::pair(0, "Two.ini"), {1, "Three.ini"}, {2, "One.ini"}}) {
    go(tab);
    EXPECT_EQ(shown(), typed(name));
    EXPECT_EQ(panel(5), pathOf(name));
  }
}

TEST_F(TabsTest, FilesOpenedDuringASetUpGoToTheirPlacesToo) {
  write("One.ini", textOf("One.ini"));
  write("Two.ini", textOf("Two.ini"));
  bool opened = false;
  yield_.onTurn = [&] {
    if (!std::exchange(opened, true)) {
      EXPECT_TRUE(window_->open({pathOf("Two.ini")}));
    }
  };
  ASSERT_TRUE(window_->open({.ManualEditFile = pathOf("One.ini"), .place = {.line = 3}}));
  show();
  EXPECT_EQ(panel(1), "Line 1 of 4");
  go(0);
  EXPECT_EQ(panel(1), "Line 3 of 4");
}

TEST_F(TabsTest, AnOpeningThatFailsAddsNoTab) {
  open("One.ini");
  EXPECT_FALSE(window_->open({pathOf("Missing.ini")}));
  EXPECT_EQ(tabs(), QStringList("One.ini"));
  EXPECT_EQ(shown(), textOf("One.ini"));
  type("x");
  EXPECT_EQ(tabs(), QStringList("One.ini*"));
}

TEST_F(TabsTest, AWindowThatIsUsedAgainBeginsWithOneTab) {
  typeInThree();
  window_->close();
  open("Four.ini");
  EXPECT_EQ(tabs(), QStringList("Four.ini"));
  EXPECT_EQ(shown(), textOf("Four.ini"));
  for (const char* name : kThree) EXPECT_EQ(keptOf(name), unsaved(name)) << name;
}

TEST_F(TabsTest, ASearchGoesOnInTheNextTab) {
  openThree();
  find("weapon");
  EXPECT_TRUE(WaitFor([this] { return part<QLabel>("findResult")->text() == "1 of 1"; }));
  go(0);
  EXPECT_EQ(part<QComboBox>("CboFind")->currentText(), "weapon");
  EXPECT_TRUE(WaitFor([this] { return part<QLabel>("findResult")->text() == "1 hit"; }));
  EXPECT_TRUE(text().markedSpan(TextMark::hit).has_value());
  QTest::keyClick(text().focusProxy(), Qt::Key_Return);  // a new line: the find was begun elsewhere
  EXPECT_EQ(shown(), "\r\n" + textOf("One.ini"));
}

TEST_F(TabsTest, ReloadShowsTheFileAsItIsAndKeepsWhatWasTyped) {
  open("One.ini");
  write("One.ini", "changed\r\n");
  press(Qt::Key_F5, {});
  EXPECT_EQ(shown(), "changed\r\n");
  type("x");
  messages_.answers = {"Cancel"};
  press(Qt::Key_F5, {});
  EXPECT_EQ(shown(), "xchanged\r\n");
  messages_.answers = {"Load the file"};
  press(Qt::Key_F5, {});
  EXPECT_EQ(shown(), "changed\r\n");
  EXPECT_EQ(keptOf("One.ini"), QStringList("unsaved: xchanged\r\n"));
  fs::remove(game_.native(relative("One.ini")));
  press(Qt::Key_F5, {});
  EXPECT_EQ(messages_.shown.size(), 1U);
  EXPECT_EQ(shown(), "changed\r\n");
  openPart("part");
  EXPECT_FALSE(part<QAction>("reload")->isEnabled());
}

TEST_F(TabsTest, TheTenFilesOpenedLastAreRemembered) {
  for (int i = 0; i < 12; ++i) open(("File" + std::to_string(i) + ".ini").c_str());
  open("File5.ini");
  openPart("part");
  window_->close();
  remake();
  open("File11.ini");
  auto* menu = part<QMenu>("menuRecent");
  Q_EMIT menu->aboutToShow();
  QStringList names;
  for (const QAction* action : menu->actions()) names += action->text().section('\\', -1).remove(".ini");
  EXPECT_EQ(names, QStringList({"File11", "File5", "File10", "File9", "File8", "File7", "File6", "File4",
                                "File3", "File2"}));
  menu->actions()[1]->trigger();
  show();
  EXPECT_EQ(panel(5), pathOf("File5.ini"));
  type("x");
  EXPECT_EQ(shown(), "x" + textOf("File5.ini"));
}

TEST_F(TabsTest, DroppedFilesAreOpenedAndOnlyTheGamesIniFilesCanBeChanged) {
  open("One.ini");
  write("Two.ini", textOf("Two.ini"));
  const QString outside = folder_.filePath("Two.ini");
  QFile file(outside);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("outside\r\n");
  file.close();
  drop({QUrl::fromLocalFile(QString::fromStdString(game_.native(relative("Two.ini")).string())),
        QUrl::fromLocalFile(outside), QUrl("https://example.org/Three.ini")});
  ASSERT_EQ(row().count(), 3);
  EXPECT_EQ(shown(), "outside\r\n");
  type("x");
  EXPECT_EQ(shown(), "outside\r\n");
  EXPECT_EQ(notices(),
            QStringList("Two.ini is none of the game folder's INI files and can only be read here."));
  trigger("MnuSave");
  EXPECT_EQ(messages_.shown.size(), 1U);
  go(1);
  EXPECT_EQ(panel(5), pathOf("Two.ini"));
  EXPECT_EQ(notices(), QStringList());
  type("x");
  trigger("MnuSave");
  EXPECT_EQ(game_.read(relative("Two.ini")), "x" + textOf("Two.ini"));
  EXPECT_EQ(shown(), "x" + textOf("Two.ini"));
}

}  // namespace
}  // namespace korvane
