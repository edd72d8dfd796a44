// SPDX-License-Identifier: GPL-3.0-or-later
#include <QWheelEvent>
#include <Qsci/qsciscintilla.h>

#include "manualeditor/ManEditFixture.h"

namespace korvane {
namespace {

using Sci = QsciScintillaBase;

class TextCommandsTest : public ManEditTest {
 protected:
  void press(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) const {
    QTest::keyClick(text().focusProxy(), key, modifiers);
  }
  void press(const char* action) const {
    const QKeyCombination keys = part<QAction>(action)->shortcut()[0];
    press(keys.key(), keys.keyboardModifiers());
  }
  std::string shown() const { return std::string(text().utf8()); }
  qsizetype send(unsigned message, qsizetype first = 0, qsizetype second = 0) const {
    return text().view().send(message, first, second);
  }
};

struct LineCase {
  const char* command;
  const char* text;
  TextSpan selected;
  const char* expected;
};

// "|" stands for a line end.
constexpr LineCase kLineCases[] = {
    {"toggleComment", "A = 1|  B = 2|", {0, 8}, ";A = 1|;  B = 2|"},
    {"toggleComment", ";A|;B", {0, 5}, "A|B"},
    {"toggleComment", "A|B", {3, 3}, "A|;B"},
    {"duplicateLines", "A|B", {3, 3}, "A|B|B"},
    {"duplicateLines", "A|B|", {0, 0}, "A|A|B|"},
    {"duplicateLines", "AB", {0, 1}, "AAB"},
    {"moveLinesUp", "A|B|C", {6, 6}, "A|C|B"},
    {"moveLinesUp", "A|B|C|", {3, 7}, "B|C|A|"},
    {"moveLinesUp", "A|B", {0, 0}, "A|B"},
    {"moveLinesDown", "A|B", {0, 0}, "B|A"},
    {"moveLinesDown", "A|B|C", {0, 4}, "C|A|B"},
    {"moveLinesDown", "A|B", {3, 3}, "A|B"},
    {"indentLines", "A||B|C", {0, 8}, "  A||  B|C"},
    {"indentLines", "\tA|B = 1", {4, 5}, "\tA|\tB = 1"},
    {"indentLines", "A|  B", {6, 6}, "A|    B"},
    {"outdentLines", "\tA|    B|\tC", {0, 6}, "A|B|\tC"},
    {"outdentLines", "   A| B|C", {0, 10}, " A|B|C"},
    {"outdentLines", "A|    B C", {7, 7}, "A|  B C"},
    {"trimLines", "A \t|B  |C ", {0, 6}, "A|B|C "},
    {"trimLines", "A |B  ", {6, 6}, "A |B"},
    {"alignLines", "A = 1|Long=2|;X = 3", {0, 14}, "A    = 1|Long =2|;X = 3"},
};

std::string WithLineEnds(std::string_view text) {
  std::string result;
  for (const char each : text) result += each == '|' ? std::string("\r\n") : std::string(1, each);
  return result;
}

TEST_F(TextCommandsTest, EachIsOneStepToUndoAndChangesNothingThatIsOnlyRead) {
  for (const LineCase& each : kLineCases) {
    SCOPED_TRACE(std::string(each.command) + " in " + each.text);
    const std::string before = WithLineEnds(each.text);
    openFile(before);
    text().select(each.selected);
    trigger(each.command);
    EXPECT_EQ(shown(), WithLineEnds(each.expected));
    press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(shown(), before);
    EXPECT_EQ(send(Sci::SCI_CANUNDO), 0);
    text().setReadOnly(true);
    text().select(each.selected);
    trigger(each.command);
    EXPECT_EQ(shown(), before);
    text().setReadOnly(false);
    text().setUnmodified();
  }
}

TEST_F(TextCommandsTest, KeysReachTheCommandsBeforeTheControl) {
  const struct {
    const char* command;
    const char* text;
    const char* expected;
  } cases[] = {{"toggleComment", "A|B", ";A|B"},
               {"duplicateLines", "A|B", "A|A|B"},
               {"moveLinesDown", "A|B", "B|A"},
               {"indentLines", "A|B", "  A|B"},
               {"outdentLines", "\tA|B", "A|B"}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.command);
    openFile(WithLineEnds(each.text));
    press(each.command);
    EXPECT_EQ(shown(), WithLineEnds(each.expected));
    text().setUnmodified();
  }
}

TEST_F(TextCommandsTest, TheCursorStaysWhereItIsInItsLine) {
  openFile(WithLineEnds("A|  B  |C"));
  for (const char* command : {"toggleComment", "toggleComment", "indentLines", "outdentLines", "trimLines"}) {
    const auto behind = static_cast<qsizetype>(text().utf8().find('B')) + 1;
    text().select({behind, behind});
    trigger(command);
    EXPECT_EQ(text().selectedText(), "") << command;
    EXPECT_EQ(text().utf8()[static_cast<std::size_t>(text().cursor()) - 1], 'B') << command;
  }
  EXPECT_EQ(shown(), WithLineEnds("A|  B|C"));
}

TEST_F(TextCommandsTest, ARectangleIsTypedIntoAllOfItsLines) {
  openFile(WithLineEnds("AAA|BBB|CCC|"));
  for (const Qt::Key key : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Down})
    press(key, Qt::AltModifier | Qt::ShiftModifier);
  EXPECT_NE(send(Sci::SCI_SELECTIONISRECTANGLE), 0);
  type("x");
  EXPECT_EQ(shown(), WithLineEnds("xAA|xBB|xCC|"));
}

TEST_F(TextCommandsTest, MarksAreSetAndGoneThrough) {
  openFile(WithLineEnds("A|B|C|D|"));
  for (const int line : {1, 3}) {
    text().goTo(line, 0, 0);
    press("toggleMark");
  }
  text().goTo(0, 0, 0);
  QList<int> way;
  for (const char* command : {"nextMark", "nextMark", "nextMark", "previousMark"}) {
    press(command);
    way += text().cursorLine();
  }
  EXPECT_EQ(way, QList<int>({1, 3, 1, 3}));
  press("toggleMark");
  press("nextMark");
  press("nextMark");
  EXPECT_EQ(text().cursorLine(), 1);
}

TEST_F(TextCommandsTest, LettersGrowAndShrinkByKeysAndByTheWheel) {
  openFile("A");
  const auto zoom = [this] { return send(Sci::SCI_GETZOOM); };
  QWidget* inside = static_cast<QAbstractScrollArea*>(text().focusProxy())->viewport();
  const auto turn = [inside](int by) {
    QWheelEvent wheel({9, 9}, inside->mapToGlobal(QPointF(9, 9)), {}, {0, by}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(inside, &wheel);
  };
  turn(120);
  turn(120);
  EXPECT_EQ(zoom(), 2);
  turn(-120);
  EXPECT_EQ(zoom(), 1);
  press("zoomIn");
  EXPECT_EQ(zoom(), 2);
  press("zoomNormal");
  EXPECT_EQ(zoom(), 0);
  press("zoomOut");
  EXPECT_EQ(zoom(), -1);
}

TEST_F(TextCommandsTest, BlanksAndWrappingAreSwitchedAndStayForTheNextTab) {
  openFile("A");
  for (const char* command : {"showBlanks", "wrapLines"}) trigger(command);
  openPart("B");
  EXPECT_NE(send(Sci::SCI_GETVIEWWS), Sci::SCWS_INVISIBLE);
  EXPECT_NE(send(Sci::SCI_GETWRAPMODE), Sci::SC_WRAP_NONE);
  for (const char* command : {"showBlanks", "wrapLines"}) {
    EXPECT_TRUE(part<QAction>(command)->isChecked());
    trigger(command);
  }
  EXPECT_EQ(send(Sci::SCI_GETVIEWWS), Sci::SCWS_INVISIBLE);
  EXPECT_EQ(send(Sci::SCI_GETWRAPMODE), Sci::SC_WRAP_NONE);
}

}  // namespace
}  // namespace korvane
