// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLabel>
#include <QSignalSpy>

#include "editors/CmdSetFormat.h"
#include "editors/EditorDesk.h"
#include "editors/FrmCmdSet.h"

namespace korvane {
namespace {

class CommandSetEditorTest : public EditorDesk {
 protected:
  void SetUp() override {
    game.ini("CommandSet.ini", "CommandSet Tank\n  1 = StopButton\nEnd ; of tank\nCommandSet Dozer\nEnd\n");
    game.ini("CommandButton.ini",
             "CommandButton StopButton ; halt\nEnd\n CommandButton Indented\nCommandButton One,Two  \n");
  }
};

TEST_F(CommandSetEditorTest, ASlotOffersEveryButtonOfTheFile) {
  const auto editor = open<FrmCmdSet>();
  EXPECT_EQ(entries(*editor), (QStringList{"Tank", "Dozer"})) << "in the file's order";
  EXPECT_EQ(selected(*editor), "Tank");
  click(*editor, 0);
  EXPECT_EQ(rows(*editor).size(), 12);
  EXPECT_EQ(rows(*editor).value(0), "1|StopButton");
  const std::vector<std::string> names{"StopButton ; halt", "One", "Two"};
  EXPECT_EQ(*table(*editor).row(4).choices, names);
  open<FrmCmdSet>();
  EXPECT_EQ(*parser.ButtonNames, names) << "the same when it is opened again";
}

TEST_F(CommandSetEditorTest, WithoutButtonsNothingIsOffered) {
  game.ini("CommandButton.ini", "CommandButton\n");
  const auto editor = open<FrmCmdSet>();
  click(*editor, 1);
  EXPECT_TRUE(table(*editor).row(0).choices->empty());
  EXPECT_EQ(rows(*editor).value(11), "12|");
}

TEST_F(CommandSetEditorTest, TheHelpMenuOpensHelpAndPicture) {
  const auto editor = open<FrmCmdSet>();
  trigger(*editor, "MnuHelp");
  ASSERT_EQ(shell.runs.size(), 1u);
  EXPECT_EQ(shell.runs[0], std::pair(QString("C:\\Korvane\\KORVANE.HLP"), QString("C:\\Korvane")));
  QSignalSpy asked(editor.get(), &FrmCmdSet::formatAsked);
  trigger(*editor, "MnuCmdFormat");
  EXPECT_EQ(asked.count(), 1);
}

TEST_F(CommandSetEditorTest, ThePictureIsAGridOfTwelveSlots) {
  CmdSetFormat window(settings);
  const QImage picture = window.findChild<QLabel*>("Picture1")->pixmap().toImage();
  ASSERT_EQ(picture.size(), QSize(358, 40));
  const auto black = [&](int x, int y) { return picture.pixelColor(x, y) == QColor(Qt::black); };
  int upright = 0;
  for (int x = 0; x < picture.width(); ++x) upright += black(x, 3) ? 1 : 0;
  int level = 0;
  for (int y = 0; y < picture.height(); ++y) level += black(5, y) ? 1 : 0;
  EXPECT_EQ(upright, 7);
  EXPECT_EQ(level, 3);
  EXPECT_TRUE(black(357, 39));
  window.show();
  window.close();
  EXPECT_TRUE(settings.find("EditWH", "CmdSetFormat_Left"));
}

TEST_F(CommandSetEditorTest, WhatTheTableDoesNotShowIsToldWithItsPlace) {
  game.ini("CommandSet.ini",
           "CommandSet TankUpgrade\n  1 = Command_A\nEnd\n"
           "CommandSet Tank\n  12 = Command_L\n  13 = Command_Guard ; x\n 14= Command_Stop\nEnd\n"
           "CommandSet Truck\n  13 = Command_Guard\nEnd\n");
  const auto editor = open<FrmCmdSet>();
  const NoticeBar& bar = *editor->findChild<NoticeBar*>();
  click(*editor, 0);
  EXPECT_EQ(bar.sentences(), QStringList());
  click(*editor, 1);
  EXPECT_EQ(bar.sentences(),
            QStringList("These are the values of TankUpgrade in line 1; Tank stands in line 4."));
  click(*editor, 2);
  EXPECT_EQ(bar.sentences(), QStringList("Slot 13 Command_Guard is not shown in this table."));
  game.ini("CommandSet.ini", "CommandSet Tank\n  13 = Command_Guard ; x\n 14 = Command_Stop\nEnd\n");
  click(*editor, 1);
  EXPECT_EQ(bar.sentences(),
            QStringList("Slots 13 Command_Guard and 14 Command_Stop are not shown in this table."));
  Q_EMIT bar.findChild<QLabel*>("Notice")->linkActivated("3");
  QApplication::processEvents();
  ASSERT_EQ(launcher.requests.size(), 1U);
  EXPECT_EQ(launcher.requests[0].place.line, 3);
}

TEST_F(CommandSetEditorTest, ATypedValueIsMarkedUntilTheTableIsFilledAnew) {
  const auto editor = open<FrmCmdSet>();
  click(*editor, 0);
  QAbstractItemModel& model = *table(*editor).model();
  const QModelIndex value = model.index(0, 1);
  const auto marked = [&] {
    EXPECT_EQ(value.data(Qt::ToolTipRole).isValid(), value.data(Qt::FontRole).isValid());
    EXPECT_EQ(editor->findChild<NoticeBar*>()->sentences().contains(
                  "What is typed here is not saved. Edit in file"),
              value.data(Qt::FontRole).isValid());
    return value.data(Qt::FontRole).isValid();
  };
  EXPECT_FALSE(marked());
  model.setData(value, "One");
  EXPECT_TRUE(marked());
  model.setData(value, "StopButton");
  EXPECT_FALSE(marked());
  model.setData(value, "One");
  click(*editor, 0);
  EXPECT_FALSE(table(*editor).hasTyped());
  EXPECT_TRUE(editor->findChild<NoticeBar*>()->isHidden());
}

}  // namespace
}  // namespace korvane
