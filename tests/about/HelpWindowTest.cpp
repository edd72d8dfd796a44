// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QAction>
#include <QApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QTextBrowser>
#include <QTextCursor>
#include <QTimer>
#include <QToolBar>
#include <QTreeWidget>

#include "about/HelpDesk.h"
#include "platform/DesktopMessageBoxes.h"
#include "support/GameFolder.h"
#include "support/Windows.h"

namespace korvane {
namespace {

FrmHelp* HelpWindow() {
  return qobject_cast<FrmHelp*>(VisibleWindow("FrmHelp"));
}

QString Heading(const FrmHelp& window) {
  return window.findChild<QTextBrowser*>("HelpText")->toPlainText().section('\n', 0, 0);
}

class HelpJourney : public testing::Test {
 protected:
  ~HelpJourney() override { QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); }

  HelpDesk desk{KORVANE_HELP_FILE};
};

TEST_F(HelpJourney, LinksCanBeReadOnADarkBackground) {
  desk.showContents();
  FrmHelp& window = *HelpWindow();
  QPalette dark = window.palette();
  dark.setColor(QPalette::Base, Qt::black);
  dark.setColor(QPalette::Text, Qt::white);
  dark.setColor(QPalette::Link, Qt::blue);
  window.setPalette(dark);
  QTextCursor link = window.findChild<QTextBrowser*>("HelpText")->document()->find("What Korvane is");
  ASSERT_FALSE(link.isNull());
  EXPECT_GT(link.charFormat().foreground().color().lightness(), 140);
}

TEST_F(HelpJourney, LinksAndTopicsLeadForwardAndBack) {
  desk.showContents();
  FrmHelp& window = *HelpWindow();
  EXPECT_EQ(Heading(window), "Korvane Help");
  desk.showTopic(1020);
  EXPECT_EQ(HelpWindow(), &window);
  const QString folderStep = Heading(window);
  EXPECT_EQ(window.findChild<QTreeWidget*>("HelpContents")->currentItem()->text(0), folderStep);

  auto* text = window.findChild<QTextBrowser*>("HelpText");
  Q_EMIT text->anchorClicked(QUrl("wine.md"));
  EXPECT_EQ(Heading(window), "Under Wine");
  const auto step = [&](const char* name) { window.findChild<QAction*>(name)->trigger(); };
  step("Help_Back");
  EXPECT_EQ(Heading(window), folderStep);
  step("Help_Forward");
  EXPECT_EQ(Heading(window), "Under Wine");
  step("Help_Back");
  step("Help_Back");
  EXPECT_EQ(Heading(window), "Korvane Help");
  EXPECT_FALSE(window.findChild<QAction*>("Help_Back")->isEnabled());

  Q_EMIT text->anchorClicked(QUrl("no-such-page.md"));
  EXPECT_EQ(Heading(window), "Korvane Help");
}

TEST_F(HelpJourney, AnUnknownTopicShowsTheContents) {
  desk.showTopic(4711);
  EXPECT_EQ(Heading(*HelpWindow()), "Korvane Help");
}

TEST_F(HelpJourney, LinksToTheWebAreHandedOn) {
  desk.showContents();
  const QSignalSpy opened(&desk, &HelpDesk::webLinkOpened);
  Q_EMIT HelpWindow()->findChild<QTextBrowser*>("HelpText")->anchorClicked(QUrl("https://example.org/a?b=c"));
  ASSERT_EQ(opened.count(), 1);
  EXPECT_EQ(opened[0][0].toString(), "https://example.org/a?b=c");
}

TEST_F(HelpJourney, SearchingShowsThePagesAndMarksTheWords) {
  desk.showContents();
  FrmHelp& window = *HelpWindow();
  auto* field = window.findChild<QLineEdit*>("HelpSearchField");
  auto* hits = window.findChild<QListWidget*>("HelpHits");
  auto* text = window.findChild<QTextBrowser*>("HelpText");
  QTest::keyClicks(field, "generals.exe");
  ASSERT_GT(hits->count(), 1);
  QTest::keyClick(field, Qt::Key_Return);
  ASSERT_FALSE(text->extraSelections().isEmpty());
  EXPECT_EQ(text->extraSelections().first().cursor.selectedText().toLower(), "generals.exe");

  field->setText("no page has such words");
  EXPECT_EQ(hits->count(), 1);
  QTest::mouseClick(hits->viewport(), Qt::LeftButton, {}, hits->visualItemRect(hits->item(0)).center());
  field->clear();
  EXPECT_TRUE(window.findChild<QTreeWidget*>("HelpContents")->isVisible());
  EXPECT_TRUE(text->extraSelections().isEmpty());
}

TEST(HelpWindow, AMissingFileShowsAPlainTextUntilItIsThere) {
  const GameFolder folder;
  HelpDesk desk(folder.qpath() + "\\KORVANE.HLP");
  desk.showTopic(62);
  EXPECT_TRUE(Heading(*HelpWindow()).contains("missing"));
  QTest::keyClick(HelpWindow(), Qt::Key_Escape);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

  folder.write("Korvane.hlp", "Korvane help file, version 1\n\fa.md\n---\ntopic: 62\n---\n# Here\n");
  desk.showTopic(62);
  EXPECT_EQ(Heading(*HelpWindow()), "Here");
}

// Presses Help in the message box, uses the help window with the mouse, and answers the box.
void UseHelpWhileBoxWaits() {
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  ASSERT_NE(box, nullptr);
  QTest::mouseClick(box->button(QMessageBox::Help), Qt::LeftButton);
  EXPECT_TRUE(box->isVisible());
  FrmHelp* help = HelpWindow();
  ASSERT_NE(help, nullptr);
  const QString topic = Heading(*help);
  ASSERT_TRUE(QTest::qWaitForWindowExposed(help));
  auto* bar = help->findChild<QToolBar*>("HelpToolbar");
  const QWidget* button = bar->widgetForAction(help->findChild<QAction*>("Help_Contents"));
  QTest::mouseClick(help->windowHandle(), Qt::LeftButton, {}, button->mapTo(help, button->rect().center()));
  EXPECT_NE(Heading(*help), topic);
  EXPECT_TRUE(box->isVisible());
  QTest::keyClick(box, Qt::Key_Escape);
}

TEST(HelpWindow, CanBeUsedWhileAMessageBoxWaits) {
  for (const bool hasOwner : {false, true}) {
    QWidget owner;
    owner.show();
    HelpDesk desk(KORVANE_HELP_FILE);
    DesktopMessageBoxes messages(desk);
    QTimer::singleShot(0, UseHelpWhileBoxWaits);
    messages.show({.text = "Something is wrong", .helpTopic = 62, .systemModal = true},
                  hasOwner ? &owner : nullptr);
    EXPECT_NE(HelpWindow(), nullptr);
  }
}

}  // namespace
}  // namespace korvane
