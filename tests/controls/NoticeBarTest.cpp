// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>
#include <QTextEdit>

#include "controls/NoticeBar.h"
#include "controls/ReadableColours.h"

namespace korvane {
namespace {

class NoticeBars : public testing::Test {
 protected:
  void SetUp() override {
    window.reset(NoticeBar::below(content, bar));
    window->resize(500, 400);
    window->show();
  }
  QLabel& row(int number) const { return *bar->findChildren<QLabel*>("Notice").at(number); }
  // The user clicks the link of that number in the first sentence.
  void clickLink(int number) const {
    Q_EMIT row(0).linkActivated(QString::number(number));
    QApplication::processEvents();
  }
  int heightLeft() const {
    QApplication::processEvents();
    return content->height();
  }

  QTextEdit* content = new QTextEdit;
  NoticeBar* bar = new NoticeBar;
  std::unique_ptr<QWidget> window;
};

TEST_F(NoticeBars, IsHiddenWithNothingToSayAndTakesItsHeightFromBelow) {
  EXPECT_TRUE(bar->isHidden());
  const int whole = heightLeft();
  EXPECT_EQ(whole, 400);
  bar->tell(1, {Notice("One.")});
  const int withOne = heightLeft();
  EXPECT_LT(withOne, whole);
  EXPECT_EQ(content->pos(), QPoint(0, 0));
  bar->tell(2, {Notice(QString("Many words. ").repeated(40))});
  EXPECT_LT(heightLeft(), withOne - 2 * row(0).height());  // a long sentence is wrapped
  bar->clear(1);
  bar->clear(2);
  EXPECT_TRUE(bar->isHidden());
  EXPECT_EQ(heightLeft(), whole);
}

TEST_F(NoticeBars, NoSentencesAreTooManyForTheWindowAndNoWordIsTooLong) {
  std::vector<Notice> many;
  for (int i = 0; i < 100; ++i) many.push_back(Notice(QString(1000, 'x')));
  bar->tell(1, std::move(many));
  EXPECT_GT(heightLeft(), 200);
  EXPECT_EQ(window->width(), 500);
  EXPECT_LT(window->minimumSizeHint().width(), 500);
  EXPECT_LE(row(0).width(), 500);
}

TEST_F(NoticeBars, PartsStandInTheirOrderAndReplaceOnlyThemselves) {
  bar->tell(2, {Notice("c")});
  bar->tell(1, {Notice("a"), Notice("b")});
  EXPECT_EQ(bar->sentences(), QStringList({"a", "b", "c"}));
  bar->tell(1, {Notice("d")});
  EXPECT_EQ(bar->sentences(), QStringList({"d", "c"}));
}

TEST_F(NoticeBars, AScreenReaderHearsThemWhereTheKeyboardIs) {
  content->setAccessibleDescription("Own");
  content->setFocus();
  const auto heard = [this] { return content->accessibleDescription(); };
  bar->tell(1, {Notice("a")});
  bar->tell(2, {Notice("b")});
  EXPECT_EQ(heard(), "a b");
  bar->clear(1);
  EXPECT_EQ(heard(), "b");
  bar->clear(2);
  EXPECT_EQ(heard(), "Own");
}

TEST_F(NoticeBars, LinksAndButtonsDoTheirOwnThingAndCanReplaceTheirSentence) {
  QStringList done;
  Notice notice;
  notice.say("See ").link("here", [&] { done += "here"; }).say(" or ").link("there", [&] {
    done += "there";
    bar->tell(1, {Notice("Gone")});
  });
  notice.button("Do", [&] { done += "do"; });
  bar->tell(1, {notice});
  EXPECT_EQ(bar->sentences(), QStringList("See here or there"));
  clickLink(1);
  bar->findChild<QPushButton*>("NoticeButton")->click();
  QApplication::processEvents();
  clickLink(3);
  EXPECT_EQ(done, QStringList({"here", "do", "there"}));
  EXPECT_EQ(bar->sentences(), QStringList("Gone"));
}

TEST_F(NoticeBars, AKeyLeadsToTheFirstLinkAndEscapeBack) {
  QStringList done;
  Notice second("Only said.");
  Notice third;
  third.say("See ").link("here", [&] {
    done += "here";
    bar->clear(1);
  });
  bar->tell(1, {second, third});
  window->activateWindow();
  content->setFocus();
  const auto press = [](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
    QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    QApplication::processEvents();
  };
  ASSERT_TRUE(QTest::qWaitFor([this] { return content->hasFocus(); }));
  press(Qt::Key_F6, Qt::ControlModifier);
  EXPECT_TRUE(row(1).hasFocus());
  press(Qt::Key_Escape);
  EXPECT_TRUE(content->hasFocus());
  press(Qt::Key_F6, Qt::ControlModifier);
  press(Qt::Key_Return);
  EXPECT_EQ(done, QStringList("here"));
  EXPECT_TRUE(bar->isHidden());
  EXPECT_TRUE(content->hasFocus()) << "the sentence is gone";
  Notice button("Do it?");
  button.button("Do", [&] { done += "do"; });
  bar->tell(1, {button});
  press(Qt::Key_F6, Qt::ControlModifier);
  press(Qt::Key_Space);
  EXPECT_EQ(done, QStringList({"here", "do"}));
}

TEST_F(NoticeBars, TextOfAFileIsNeverMarkup) {
  bar->tell(1, {Notice("<b>Tank</b> & ").link("<i>x</i>", [] {})});
  EXPECT_TRUE(row(0).text().contains("&lt;b&gt;Tank&lt;/b&gt; &amp; "));
  EXPECT_TRUE(row(0).text().contains(">&lt;i&gt;x&lt;/i&gt;</a>"));
}

TEST_F(NoticeBars, LinksCanBeReadWhenThePaletteTurnsDark) {
  const auto linkColour = [this] {
    return QColor(QRegularExpression("color:(#[0-9a-f]{6})").match(row(0).text()).captured(1));
  };
  QPalette palette(QColor(240, 240, 240));
  palette.setColor(QPalette::Link, Qt::blue);
  window->setPalette(palette);
  bar->tell(1, {Notice("See ").link("line 7", [] {})});
  EXPECT_EQ(linkColour(), QColor(Qt::blue));
  palette = QPalette(QColor(40, 44, 48));
  palette.setColor(QPalette::Link, Qt::blue);
  window->setPalette(palette);
  EXPECT_GT(linkColour().lightness(), 150);
}

TEST(LinkColours, CanBeReadInLightAndDarkPalettes) {
  QPalette palette;
  palette.setColor(QPalette::Link, QColor(0, 0, 255));
  EXPECT_EQ(ReadableLink(palette, Qt::white), QColor(0, 0, 255));
  EXPECT_GT(ReadableLink(palette, QColor(40, 40, 40)).lightness(), 150);
  palette.setColor(QPalette::Link, QColor(150, 190, 255));
  EXPECT_EQ(ReadableLink(palette, QColor(40, 40, 40)), QColor(150, 190, 255));
  EXPECT_LT(ReadableLink(palette, Qt::white).lightness(), 100);
}

}  // namespace
}  // namespace korvane
