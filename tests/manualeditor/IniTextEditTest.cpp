// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QSignalSpy>

#include <string>

#include "manualeditor/IniTextEdit.h"
#include "manualeditor/LineEdits.h"
#include "manualeditor/LineMarks.h"
#include "textview/LineColours.h"

namespace korvane {
namespace {

std::string AllBytesButLineEnds() {
  std::string bytes;
  for (int i = 0; i < 256; ++i) {
    if (i != '\r' && i != '\n') bytes += static_cast<char>(i);
  }
  return bytes;
}

TEST(IniTextEdit, EveryByteComesBackAndLoneLineEndsBecomeCrLf) {
  const std::string all = AllBytesButLineEnds();
  const std::string mark("\xEF\xBB\xBF");  // three letters like any others
  const struct {
    std::string file;
    std::string saved;
  } kCases[] = {
      {"", ""},
      {"\r\n", "\r\n"},
      {mark + all + "\r\n" + all, mark + all + "\r\n" + all},
      {all + all + "\r\n\r\n", all + all + "\r\n\r\n"},
      {std::string("\0\0\r\n\0", 5), std::string("\0\0\r\n\0", 5)},
      {"a\nb\rc\r\r\n\n\r", "a\r\nb\r\nc\r\n\r\n\r\n\r\n"},
  };
  IniTextEdit text;
  for (const auto& [file, saved] : kCases) {
    text.setBytes(file);
    EXPECT_FALSE(text.isModified());
    EXPECT_FALSE(text.fileBytes().refused);
    EXPECT_EQ(text.fileBytes().bytes, saved);
  }
}

TEST(IniTextEdit, ARewriteMayBeginBeforeOrEndBehindAllOfTheText) {
  for (const char* before : {"A\r\nB", "", "A\r\nB\r\n"}) {
    for (const char* after : {"x\r\nA\r\nB", "xA\r\nB", "A\r\nBx", "A\r\nB", "\r\nA\r\nB\r\nC", ""}) {
      IniTextEdit text;
      text.setBytes(before);
      text.rewrite(after);
      EXPECT_EQ(text.fileBytes().bytes, after) << before;
    }
  }
}

TEST(IniTextEdit, EveryEditIsToldHoweverLargeTheText) {
  for (const int lines : {1, 10'000, 100'000}) {
    IniTextEdit text;
    QSignalSpy edits(&text, &IniTextEdit::edited);
    text.setBytes(QByteArray("  Damage = 10\r\n").repeated(lines).toStdString());
    for (const char* typed : {"x", ""}) {
      edits.clear();
      text.selectCharacterAt(0);
      text.replaceSelection(typed);
      EXPECT_GE(edits.size(), 1) << lines << " lines, \"" << typed << '"';
    }
  }
}

TEST(LineEdits, ChangeOnlyWhatTheyAreFor) {
  const struct {
    std::string (*edit)(std::string_view);
    const char* lines;
    const char* result;
  } kCases[] = {
      {CommentToggled, "  A = 1\r\n\r\n    B\r\n", "  ;A = 1\r\n\r\n  ;  B\r\n"},
      {CommentToggled, "  ;A = 1\n\r;B", "  A = 1\n\rB"},
      {CommentToggled, ";A\nB", ";;A\n;B"},
      {CommentToggled, " \r\n", " \r\n"},
      {Trimmed, "a \t\r\n \r\n\xC3\x84 b ", "a\r\n\r\n\xC3\x84 b"},
  };
  for (const auto& [edit, lines, result] : kCases) EXPECT_EQ(edit(lines), result) << lines;
  EXPECT_EQ(Aligned("  A=1 ; x = y\r\n\tLong = 2\r\n; no = 3\r\nNone\r\n \xC3\x84   =4", 4),
            "  A      =1 ; x = y\r\n\tLong = 2\r\n; no = 3\r\nNone\r\n \xC3\x84       =4");
}

TEST(IniTextEdit, ChangedLinesAreMarkedUntilSavedOrUndone) {
  for (const int lines : {3, 20'000}) {  // above a size the control tells of edits beforehand
    IniTextEdit text;
    text.setBytes(QByteArray("  Damage = 10\r\n").repeated(lines).toStdString());
    const auto marked = [&text] {
      QCoreApplication::processEvents();
      std::vector<long long> found;
      for (qsizetype line = -1; (line = text.view().send(2047, line + 1, 0b1100)) >= 0;) {
        found.push_back(text.view().send(2046, line) << 8 | line);
      }
      return found;
    };
    EXPECT_TRUE(marked().empty());
    text.select({17, 17});
    text.replaceSelection("x\ny");
    EXPECT_EQ(marked(), (std::vector<long long>{0b100 << 8 | 1, 0b100 << 8 | 2}));
    text.view().send(2176);
    EXPECT_TRUE(marked().empty());
    text.replaceSelection("z");
    text.setUnmodified();
    EXPECT_EQ(marked(), (std::vector<long long>{0b1000 << 8 | 1}));
    text.setBytes(QByteArray("  Damage = 10\r\n").repeated(lines).toStdString());
    const QByteArray before(text.utf8().data(), static_cast<qsizetype>(text.utf8().size()));
    text.lineMarks().toggle(1);
    text.replaceAllText(QByteArray(before).replace(26, 2, "200"));
    EXPECT_EQ(marked(), (std::vector<long long>{0b110 << 8 | 1}));
    text.view().send(2176);
    EXPECT_EQ(text.utf8(), std::string_view(before.constData(), static_cast<std::size_t>(before.size())));
  }
}

TEST(IniTextEdit, ALineGoesThroughAllOfAStruckOutTextHoweverItCame) {
  const auto picture = [](std::string_view loaded, bool struckOut, const auto& edit) {
    IniTextEdit text;
    QFont font = text.textFont();
    font.setStrikeOut(struckOut);
    text.setTextFont(font);
    text.setBytes(loaded);
    edit(text);
    text.lineMarks().beginText();  // an edited line is marked in the margin
    text.lineMarks().endText();
    text.moveToStart();
    return text.grab().toImage();
  };
  const auto nothing = [](IniTextEdit&) {};
  const QImage expected = picture("aabb", true, nothing);
  EXPECT_NE(expected, picture("aabb", false, nothing));
  EXPECT_EQ(expected, picture("bb", true, [](IniTextEdit& text) { text.replaceSelection("aa"); }));
  EXPECT_EQ(expected, picture("aaxx", true, [](IniTextEdit& text) { text.replaceAllText("aabb"); }));
  EXPECT_EQ(expected, picture("aac", true, [](IniTextEdit& text) {
              text.selectCharacterAt(2);
              text.replaceSelection("bb");
            }));
}

TEST(IniTextEdit, TheSelectionCanHoldAnyByte) {
  IniTextEdit text;
  text.setBytes(std::string("a\0b", 3));
  text.selectAll();
  const QString selected = text.selectedText();
  EXPECT_EQ(selected.size(), 3);
  text.replaceSelection(selected + "\nc");
  EXPECT_EQ(text.fileBytes().bytes, std::string("a\0b\r\nc", 6));
}

TEST(LineColours, EachPartOfALineHasItsKind) {
  // p plain, c comment, h header, e end, k key, v value
  const std::pair<std::string, std::string> kCases[] = {
      {"Weapon Gun ; x", "hhhhhhhhhhhccc"},
      {"  Damage = 1 //x", "ppkkkkkkvvvvvccc"},
      {"End", "eee"},
      {"\tEND ;x", "peeepcc"},
      {"Ending = 1", "hhhhhhhhhh"},
      {"  Endow=1", "ppkkkkkvv"},
      {";x\r\n  A\rB\n", "ccppppkphp"},
      {"   ", "ppp"},
  };
  for (const auto& [text, letters] : kCases) {
    std::string kinds(text.size(), '?');
    KindsOf(text, kinds.data());
    for (char& kind : kinds) kind = "pchekv"[static_cast<int>(kind)];
    EXPECT_EQ(kinds, letters) << text;
  }
}

}  // namespace
}  // namespace korvane
