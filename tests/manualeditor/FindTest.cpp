// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCheckBox>

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
  QString button() const { return part<QPushButton>("BtnFind")->text(); }
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
    EXPECT_TRUE(QTest::qWaitFor([&] { return text().focusProxy()->hasFocus(); }));
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
    EXPECT_TRUE(QTest::qWaitFor([&] { return text().focusProxy()->hasFocus(); }));
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

TEST_F(FindTest, ReplaceAllIsOneStepAndSaysHowMany) {
  openFile("gun Gun gun");
  replaceWindow("gun", "\xE2\x82\xAC gun");
  part<QPushButton>("BtnReplaceAll")->click();
  EXPECT_EQ(part<QLabel>("LblResult")->text(), "3 replaced.");
  EXPECT_EQ(text().fileBytes().bytes, "\x80 gun \x80 gun \x80 gun");
  QTest::keyClick(text().focusProxy(), Qt::Key_Z, Qt::ControlModifier);
  EXPECT_EQ(text().fileBytes().bytes, "gun Gun gun");
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
