// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCheckBox>

#include <functional>

#include "manualeditor/ManEditFixture.h"

namespace korvane {
namespace {

class FindTest : public ManEditTest {
 protected:
  QStringList history() const {
    QStringList items;
    const auto* list = part<QComboBox>("CboFind");
    for (int i = 0; i < list->count(); ++i) items += list->itemText(i);
    return items;
  }
  QString result() const { return part<QLabel>("findResult")->text(); }
  bool resultBecomes(const QString& text) const {
    return WaitFor([&] { return result() == text; });
  }
  QString button() const { return part<QPushButton>("BtnFind")->text(); }
  // What the window says at its lower edge, and whether the box has another colour than usual.
  std::pair<QString, bool> warning() const {
    const QColor usual = QApplication::palette("QLineEdit").color(QPalette::Base);
    const auto* box = part<QComboBox>("CboFind")->lineEdit();
    return {notices().join(' '), box->palette().color(QPalette::Base) != usual};
  }
  QString replaceResult() const { return part<QLabel>("LblResult")->text(); }
  void replaceWindow(const char* sought, const char* replacement) const {
    trigger("MnuReplace");
    part<QLineEdit>("TxtFind")->setText(sought);
    part<QLineEdit>("TxtReplace")->setText(replacement);
  }
};

TEST_F(FindTest, FindsOnFromHitToHitAndStaysAtTheLast) {
  openFile("gun\r\n\xC4rger\r\nGUN\r\n");
  EXPECT_EQ(button(), "Find");
  for (const auto& [line, caption] :
       {std::pair{"Line 1 of 4", "Find Next"}, {"Line 3 of 4", "Find Next"}, {"Line 3 of 4", "Find Next"}}) {
    part<QComboBox>("CboFind")->setFocus();
    if (button() == "Find") part<QComboBox>("CboFind")->setEditText("Gun");
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_TRUE(WaitFor([&] { return text().focusProxy()->hasFocus(); }));
    EXPECT_EQ(panel(1), line);
    EXPECT_EQ(button(), caption);
  }
  EXPECT_EQ(text().selectedText(), "GUN");
  part<QComboBox>("CboFind")->setEditText(QString::fromUtf8("ärg"));
  EXPECT_EQ(button(), "Find");
  part<QPushButton>("BtnFind")->click();
  EXPECT_EQ(text().selectedText(), QString::fromUtf8("Ärg"));
}

TEST_F(FindTest, EnterFindsOnceItIsLetGo) {
  openFile("gun");
  auto* box = part<QComboBox>("CboFind");
  box->setFocus();
  box->setEditText("gun");
  for (const bool marked : {true, false}) {
    for (const auto& [type, repeated] : {std::pair{QEvent::KeyPress, false},
                                         {QEvent::KeyRelease, true},
                                         {QEvent::KeyPress, true},
                                         {QEvent::KeyRelease, false}}) {
      QKeyEvent event(type, Qt::Key_Return, Qt::NoModifier, "\r", repeated && marked);
      QCoreApplication::sendEvent(QApplication::focusWidget(), &event);
      EXPECT_FALSE(text().focusProxy()->hasFocus());
    }
    EXPECT_TRUE(WaitFor([&] { return text().focusProxy()->hasFocus(); }));
    box->setFocus();
  }
  EXPECT_EQ(text().selectedText(), "gun");
  EXPECT_EQ(text().fileBytes().bytes, "gun");
}

TEST_F(FindTest, TheHistoryHoldsEachTextOnceAndComesBack) {
  settings_.SaveList("Search List", {"a", "b", "a", "A"});
  openFile("a b c");
  EXPECT_EQ(history(), QStringList({"a", "b", "A"}));
  EXPECT_EQ(part<QComboBox>("CboFind")->currentText(), "");
  for (const char* sought : {"b", "", "c", "b"}) find(sought);
  EXPECT_EQ(history(), QStringList({"a", "b", "A", "", "c"}));
  EXPECT_EQ(part<QComboBox>("CboFind")->currentText(), "b");
  window_->close();
  EXPECT_EQ(settings_.LoadList("Search List"), QStringList({"a", "b", "A", "", "c"}));
}

TEST_F(FindTest, TheMenuPutsTheCursorIntoTheBoxAndFindsOn) {
  openFile("a x\r\nb x");
  find("x");
  trigger("MnuFind");
  EXPECT_EQ(part<QComboBox>("CboFind")->lineEdit()->selectedText(), "x");
  trigger("MnuFindNext");
  EXPECT_EQ(panel(1), "Line 2 of 2");
  trigger("MnuFindNext");
  EXPECT_EQ(panel(1), "Line 2 of 2");
}

TEST_F(FindTest, EnterInTheTextGoesOnUntilSomethingElseIsDone) {
  openFile("gun\r\ngun\r\ngun\r\n");
  find("gun");
  const auto press = [this](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(text().focusProxy(), key, modifiers);
  };
  EXPECT_TRUE(resultBecomes("1 of 3"));
  for (int i = 0; i < 3; ++i) press(Qt::Key_Return);
  EXPECT_TRUE(resultBecomes("last of 3"));
  press(Qt::Key_Return, Qt::ShiftModifier);
  EXPECT_TRUE(resultBecomes("2 of 3"));
  EXPECT_EQ(panel(1), "Line 2 of 4");
  EXPECT_FALSE(text().isModified());
  press(Qt::Key_Right);
  press(Qt::Key_Return);
  EXPECT_TRUE(text().isModified());
}

TEST_F(FindTest, EnterIsALineBreakWhenTheUserHasGoneElsewhere) {
  const struct {
    const char* what;
    std::function<void()> act;
  } kCases[] = {
      {"find next from the text", [this] { trigger("MnuFindNext"); }},
      {"another place", [this] { find("gun"), text().goTo(2, 0, 0); }},
      {"an edit", [this] { find("gun"), trigger("MnuDelete"); }},
  };
  for (const auto& [what, act] : kCases) {
    SCOPED_TRACE(what);
    openFile("gun\r\ngun\r\ngun\r\n");
    part<QComboBox>("CboFind")->setEditText("gun");
    act();
    const int lines = text().lineCount();
    QTest::keyClick(text().focusProxy(), Qt::Key_Return);
    EXPECT_EQ(text().lineCount(), lines + 1);
  }
}

TEST_F(FindTest, WhatIsNotThereIsSaidAndMovesNothing) {
  openFile("a\r\ngun\r\n");
  find("gun");
  find("cannon");
  EXPECT_TRUE(resultBecomes("Not found"));
  EXPECT_EQ(text().selectedText(), "gun");
  EXPECT_EQ(warning(), std::pair(QString("'cannon' is not found in this text."), true));
  QTest::keyClick(text().focusProxy(), Qt::Key_Home);
  EXPECT_EQ(warning(), std::pair(QString(), true));
  part<QComboBox>("CboFind")->setEditText("canno");
  EXPECT_EQ(warning(), std::pair(QString(), false));
}

TEST_F(FindTest, OnlyWhatIsNotThereIsSaidToBeNotFound) {
  const std::pair<QString, bool> kNothing{};
  openFile("a\r\ngun\r\n");
  part<QAction>("findInSelection")->setChecked(true);
  EXPECT_EQ(result(), "Nothing is selected");
  EXPECT_EQ(warning(), kNothing);
  EXPECT_FALSE(part<QAction>("findInSelection")->isChecked());
  find("");
  EXPECT_TRUE(resultBecomes(""));
  EXPECT_EQ(warning(), kNothing);
  find("gun");
  EXPECT_TRUE(resultBecomes("1 of 1"));
  trigger("MnuDelete");
  EXPECT_TRUE(resultBecomes("No hits"));
  EXPECT_EQ(warning(), kNothing);
  part<QAction>("findRegularExpression")->setChecked(true);
  find("g(un");
  EXPECT_TRUE(WaitFor([&] { return result().contains("parenthes"); }));
  EXPECT_EQ(warning(), kNothing);
}

TEST_F(FindTest, WhatWasFoundIsForgottenWhenAnotherFileIsOpened) {
  game_.ini("Armor.ini", "Armor A\nEnd\n");
  openFile("gun\r\ngun\r\n");
  text().select({0, 3});
  part<QAction>("findInSelection")->setChecked(true);
  find("gun");
  EXPECT_TRUE(resultBecomes("1 of 1"));
  ASSERT_TRUE(window_->open({game_.qpath() + "\\Data\\INI\\Armor.ini"}));
  show();
  EXPECT_EQ(result(), "");
  EXPECT_FALSE(part<QAction>("findInSelection")->isChecked());
  find("a");
  EXPECT_TRUE(resultBecomes("1 of 2")) << result().toStdString();
}

TEST_F(FindTest, AHugeTextSaysWhatIsNotThere) {
  std::string file = "gun\r\n";
  while (file.size() < 17'000'000) file += std::string(98, 'x') + "\r\n";
  openFile(file);
  find("cannon");
  EXPECT_TRUE(resultBecomes("Not found"));
  find("gun");
  trigger("MnuFindNext");
  EXPECT_TRUE(resultBecomes("No further hit"));
}

TEST_F(FindTest, OptionsSayWhatIsAHit) {
  const struct {
    std::vector<const char*> options;
    const char* sought;
    const char* result;
  } kCases[] = {
      {{}, "gun", "1 of 6"},
      {{"findMatchCase"}, "Gun", "1 of 1"},
      {{"findWholeWord"}, "gun", "1 of 3"},
      {{"findRegularExpression"}, "^\\s*gun_?", "1 of 4"},
      {{"findRegularExpression", "findWholeWord"}, "[a-z]+$", "1 of 2"},
      {{"findRegularExpression"}, "x*", "Not found"},
  };
  openFile("gun\r\n Gun gun_A\r\ngun\r\n\xC4gun 1\r\n gun_\r\n");
  for (const auto& [options, sought, expected] : kCases) {
    for (const char* option : options) part<QAction>(option)->setChecked(true);
    find(sought);
    EXPECT_TRUE(resultBecomes(expected)) << sought << ": " << result().toStdString();
    for (const char* option : options) part<QAction>(option)->setChecked(false);
  }
}

TEST_F(FindTest, SearchesStayInTheSelectionAndWrapAround) {
  openFile("gun\r\ngun\r\ngun\r\n");
  text().select({5, 13});
  part<QAction>("findInSelection")->setChecked(true);
  find("gun");
  EXPECT_TRUE(resultBecomes("1 of 2"));
  trigger("findPrevious");
  EXPECT_TRUE(resultBecomes("first of 2"));
  part<QAction>("findWrapAround")->setChecked(true);
  trigger("findPrevious");
  EXPECT_TRUE(resultBecomes("2 of 2"));
  trigger("MnuFindNext");
  EXPECT_EQ(panel(1), "Line 2 of 4");
}

TEST(TextSearch, FindsLettersInAnyForm) {
  const struct {
    const char* sought;
    const char* text;
    std::vector<qsizetype> hits;
    bool matchCase = false;
  } kCases[] = {
      {"ananas", "anananas ANANAS", {2, 9}}, {"aa", "aaaaa", {0, 2}},
      {"Gun", "gun Gun GUN gu", {0, 4, 8}},  {"Gun", "gun Gun GUN gu", {4}, true},
      {"[@`{", "[@`{ {@`[ [`@{", {0}},       {"rk", "Dark dar\u212A DARK", {2, 7, 14}},
      {"\u00E4", "\u00C4 \u00E4", {0, 3}},   {"mist", "Mi\u017Ft mist", {0, 6}},
      {"mist", "Mi\u017Ft mist", {6}, true}, {"x", "", {}},
  };
  for (const auto& c : kCases) {
    const TextSearch search(QString::fromUtf8(c.sought), {.matchCase = c.matchCase});
    std::vector<qsizetype> starts;
    const auto size = static_cast<qsizetype>(std::string_view(c.text).size());
    for (const TextSpan& hit : search.hits(c.text, {0, size})) starts.push_back(hit.from);
    EXPECT_EQ(starts, c.hits) << c.sought << " in " << c.text;
    if (size > 3) {
      EXPECT_EQ(search.hits(c.text, {1, 2}).size(), 0U) << "nothing reaches out of a range";
    }
  }
}

TEST(TextSearch, ReplacesGroupsAndKeepsWhatLiesAround) {
  const struct {
    const char* text;
    TextSpan range;
    const char* sought;
    const char* with;
    const char* result;
    int count;
  } kCases[] = {
      {"a=1\r\nb=2", {0, 8}, "(\\w)=(\\d)", "\\2=\\1", "1=a\r\n2=b", 2},
      {"aXbX", {2, 4}, "x", "\\n", "aXb\r\n", 1},
      {"\xC3\x84x\xC3\x84", {0, 5}, "(?<=\xC3\x84)x", "y", "\xC3\x84y\xC3\x84", 1},
      {"aaa", {0, 3}, "", "b", "aaa", 0},
  };
  for (const auto& [text, range, sought, with, result, count] : kCases) {
    const TextSearch search(sought, {.regularExpression = true});
    const TextSearch::Replaced replaced = search.replaced(text, range, with);
    EXPECT_EQ(replaced.utf8.toStdString(), result);
    EXPECT_EQ(replaced.count, count);
  }
}

TEST_F(FindTest, ReplaceAllIsOneStepAndSaysHowMany) {
  openFile("gun Gun gun");
  replaceWindow("gun", "\xE2\x82\xAC gun");
  part<QPushButton>("BtnReplaceAll")->click();
  EXPECT_EQ(part<QLabel>("LblResult")->text(), "3 replaced.");
  EXPECT_EQ(text().fileBytes().bytes, "\x80 gun \x80 gun \x80 gun");
  QTest::keyClick(text().focusProxy(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(text().fileBytes().bytes, "gun Gun gun");
}

TEST_F(FindTest, TheReplaceWindowSaysWhatItWouldReplace) {
  const struct {
    std::vector<const char*> options;
    const char* sought;
    const char* result;
    const char* after;
  } kCases[] = {
      {{}, "gun", "4 to replace.", "<> <> <>ner\r\n<>"},
      {{"ChkMatchCase"}, "Gun", "1 to replace.", "gun <> gunner\r\ngun"},
      {{"replaceWholeWord"}, "gun", "3 to replace.", "<> <> gunner\r\n<>"},
      {{"replaceRegularExpression"}, "^g..", "2 to replace.", "<> Gun gunner\r\n<>"},
      {{"replaceRegularExpression"}, "g(un", "missing closing parenthesis", "gun Gun gunner\r\ngun"},
      {{}, "cannon", "0 to replace.", "gun Gun gunner\r\ngun"},
  };
  for (const auto& [options, sought, expected, after] : kCases) {
    SCOPED_TRACE(expected);
    openFile("gun Gun gunner\r\ngun");
    replaceWindow(sought, "<>");
    for (const char* option : options) part<QCheckBox>(option)->setChecked(true);
    EXPECT_TRUE(WaitFor([&, result = expected] { return replaceResult() == result; }))
        << replaceResult().toStdString();
    part<QPushButton>("BtnReplaceAll")->click();
    EXPECT_EQ(text().fileBytes().bytes, after);
    for (const char* option : options) part<QCheckBox>(option)->setChecked(false);
    text().setUnmodified();  // or it would stay
  }
}

TEST_F(FindTest, ReplacesOnlyInTheSelectionThatSearchesKeepTo) {
  openFile("gun gun gun");
  text().select({4, 11});
  part<QAction>("findInSelection")->setChecked(true);
  replaceWindow("(g)un", "\\1o");
  part<QCheckBox>("replaceRegularExpression")->setChecked(true);
  text().moveToStart();
  part<QPushButton>("BtnReplace")->click();
  EXPECT_EQ(text().selection(), (TextSpan{4, 7}));
  part<QPushButton>("BtnReplace")->click();
  EXPECT_EQ(text().fileBytes().bytes, "gun go gun");
  part<QPushButton>("BtnReplaceAll")->click();
  EXPECT_EQ(text().fileBytes().bytes, "gun go go");
}

TEST_F(FindTest, ReplacingOneByOneMindsTheCase) {
  openFile("gun Gun gun");
  replaceWindow("gun", "x");
  part<QCheckBox>("ChkMatchCase")->setChecked(true);
  for (const char* now : {"gun Gun gun", "x Gun gun", "x Gun x"}) {
    part<QPushButton>("BtnReplace")->click();
    EXPECT_EQ(text().fileBytes().bytes, now);
  }
}

}  // namespace
}  // namespace korvane
