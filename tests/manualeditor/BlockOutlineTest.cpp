// SPDX-License-Identifier: GPL-3.0-or-later
#include <QLineEdit>
#include <QListWidget>
#include <QTreeView>

#include "manualeditor/BlockPath.h"
#include "manualeditor/ManEditFixture.h"

namespace korvane {
namespace {

const char* const kTwoObjects =
    "; first\r\n"
    "Object Tank\r\n"
    "  Draw = W3DTankDraw ModuleTag_01\r\n"
    "    DefaultConditionState\r\n"
    "      Model = AVTank\r\n"
    "    End\r\n"
    "  End\r\n"
    "  BuildCost = 900\r\n"
    "End\r\n"
    "\r\n"
    "Object Jeep\r\n"
    "  BuildCost = 300\r\n"
    "End\r\n";

class BlockOutlineTest : public ManEditTest {
 protected:
  QString path() const { return part<BlockPath>("blockPath")->steps(); }
  void goToLine(int line) const { text().goTo(line - 1, 0, 0); }
  void answer(const char* command, const QString& typed) const {
    trigger(command);
    auto* field = part<QLineEdit>("jumpField");
    field->setText(typed);
    QTest::keyClick(field, Qt::Key_Return);
  }
};

TEST_F(BlockOutlineTest, SaysWhereTheCursorIsAndLeadsThere) {
  openFile(kTwoObjects);
  const std::pair<int, const char*> kPlaces[] = {
      {1, ""},
      {2, "Object Tank"},
      {5, "Object Tank \u203A Draw = W3DTankDraw ModuleTag_01 \u203A DefaultConditionState"},
      {8, "Object Tank"},
      {10, ""},
      {13, "Object Jeep"},
  };
  for (const auto& [line, steps] : kPlaces) {
    goToLine(line);
    EXPECT_EQ(path(), QString::fromUtf8(steps)) << line;
  }
  goToLine(5);
  Q_EMIT part<BlockPath>("blockPath")->linkActivated("3");
  EXPECT_EQ(panel(1), "Line 3 of 14");
}

TEST_F(BlockOutlineTest, GoesToLinesBlocksHeadersAndEnds) {
  openFile(kTwoObjects);
  const struct {
    const char* command;
    const char* typed;
    const char* place;
  } kJumps[] = {
      {"goToLine", "8", "Line 8 of 14"},      {"goToLine", "800", "Line 14 of 14"},
      {"goToBlock", "jee", "Line 11 of 14"},  {"goToBlock", "obj tank", "Line 2 of 14"},
      {"goToBlock", "plane", "Line 2 of 14"},
  };
  for (const auto& [command, typed, place] : kJumps) {
    answer(command, typed);
    EXPECT_EQ(panel(1), place) << command << ' ' << typed;
  }
  for (const char* place : {"Line 9 of 14", "Line 2 of 14"}) {
    trigger("jumpToMatch");
    EXPECT_EQ(panel(1), place);
  }
}

TEST_F(BlockOutlineTest, FoldedBlocksOpenForWhatIsGoneTo) {
  openFile(kTwoObjects);
  const auto visible = [this](int line) { return text().view().send(2228, line - 1) != 0; };
  trigger("foldAll");
  EXPECT_FALSE(visible(5));
  EXPECT_TRUE(visible(11));
  goToLine(5);
  EXPECT_TRUE(visible(5));
  trigger("foldAll");
  find("avtank");
  EXPECT_TRUE(visible(5));
}

TEST_F(BlockOutlineTest, FoldingTakesTheCursorToTheHeaderThatStaysInSight) {
  openFile(kTwoObjects);
  const auto visible = [this](int line) { return text().view().send(2228, line - 1) != 0; };
  goToLine(5);
  trigger("toggleFold");
  EXPECT_EQ(panel(1), "Line 4 of 14");
  EXPECT_FALSE(visible(5));
  trigger("toggleFold");
  EXPECT_TRUE(visible(5));
  goToLine(5);
  trigger("foldAll");
  EXPECT_EQ(panel(1), "Line 2 of 14");
  EXPECT_TRUE(visible(2));
  EXPECT_FALSE(visible(3));
  trigger("unfoldAll");
  EXPECT_TRUE(visible(5));
}

TEST_F(BlockOutlineTest, UnfoldingAllLeavesTheCursorInSight) {
  std::string many;
  for (int i = 0; i < 100; ++i) many += kTwoObjects;
  openFile(many);
  goToLine(900);
  trigger("foldAll");
  trigger("unfoldAll");
  const auto send = [this](unsigned message) { return text().view().send(message); };
  const auto top = send(2152);  // the first line on the screen, and how many there are
  EXPECT_LE(top, text().cursorLine());
  EXPECT_GT(top + send(2370), text().cursorLine());
}

TEST_F(BlockOutlineTest, ThePanelFollowsEditsAndTheCursorAndIsRemembered) {
  openFile(kTwoObjects);
  auto* tree = part<QTreeView>("blockTree");
  EXPECT_FALSE(tree->isVisible());
  trigger("showBlocks");
  goToLine(12);
  EXPECT_EQ(tree->currentIndex().data().toString(), "Object Jeep");
  text().select({0, 0});
  text().replaceSelection("Object New\nEnd\n");
  EXPECT_TRUE(WaitFor([&] { return tree->model()->rowCount() == 3; }));
  EXPECT_TRUE(WaitFor([&] { return path().isEmpty(); }));
  window_->close();
  remake();
  openFile(kTwoObjects);
  EXPECT_TRUE(part<QTreeView>("blockTree")->isVisible());
}

TEST_F(BlockOutlineTest, ALargeTextIsReadWhenItIsPaintedOrSomebodyAsks) {
  constexpr int kObjects = 5'000;
  constexpr int kLines = 5;  // of each
  std::string text;
  for (int i = 0; i < kObjects; ++i)
    text += "Object Tank" + std::to_string(i) + "\r\n  Draw = W3DTankDraw Tag\r\n    End\r\nEnd\r\n\r\n";
  const auto visible = [this](int line) { return this->text().view().send(2228, line - 1) != 0; };
  const auto isFolded = [&](int addedLines) {
    const int last = (kObjects - 1) * kLines + 1 + addedLines;
    return visible(last) && !visible(last + 1) && !visible(last + 3) && visible(last + 4);
  };
  openFile(text);
  EXPECT_EQ(path(), "");
  EXPECT_TRUE(WaitFor([&] { return path() == "Object Tank0"; }));
  // All of its lines have no levels yet; an edit comes between.
  this->text().replaceSelection("\n");
  trigger("foldAll");
  EXPECT_TRUE(isFolded(1));
  this->text().setUnmodified();
  openFile(text);
  trigger("foldAll");
  EXPECT_TRUE(isFolded(0));
  answer("goToBlock", "tank4999");
  EXPECT_EQ(panel(1), "Line 24996 of 25001");
}

}  // namespace
}  // namespace korvane
