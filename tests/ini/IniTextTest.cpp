// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "ini/IniText.h"

namespace korvane {
namespace {

TEST(IniText, LinesEndAtCrLfOrLoneCrOnly) {
  struct Case {
    std::string_view bytes;
    std::vector<std::string_view> lines;
  };
  const Case cases[] = {
      {"", {}},
      {"one", {"one"}},
      {"one\r\n", {"one"}},
      {"one\r\n\r\n", {"one", ""}},
      {"one\rtwo\rthree", {"one", "two", "three"}},
      {"one\ntwo\nthree\n", {"one\ntwo\nthree\n"}},
      {"\r\r\n\n", {"", "", "\n"}},
      {std::string_view("a\0b\r\n\xff", 6), {std::string_view("a\0b", 3), "\xff"}},
  };
  for (const Case& c : cases) {
    std::vector<std::string_view> lines;
    ForEachLine(c.bytes, [&](std::string_view line) { lines.push_back(line); });
    EXPECT_EQ(lines, c.lines) << c.bytes;
  }
}

TEST(IniText, TheValueIsTheLastWordBeforeTheFirstComment) {
  struct Case {
    std::string_view line, value;
  };
  const Case cases[] = {
      {"  Speed = 30 ; fast", "30"},
      {"Speed =30", "=30"},
      {"Speed=30", "Speed=30"},
      {"  Surfaces = Alpha Beta", "Beta"},
      {"Speed = ", "="},
      {"Speed\t=\t30", "Speed\t=\t30"},
      {"; Speed = 30 ; slow", "30"},
      {";;Speed = 30", ""},
      {"  Speed = 30  ", "30"},
      {"", ""},
  };
  for (const Case& c : cases) EXPECT_EQ(ExtractValue(c.line), c.value) << c.line;
}

TEST(IniText, TheHeaderNamesThePieceBehindTheFirstSpace) {
  EXPECT_EQ(HeaderName("Object Tank ; big"), "Tank");
  EXPECT_EQ(HeaderName("Object  Tank"), "");
  EXPECT_EQ(HeaderName("ObjectReskin New Old"), "New");
  EXPECT_EQ(HeaderName("Object\tTank x"), "x");
  EXPECT_EQ(HeaderName("Object"), std::nullopt);
}

}  // namespace
}  // namespace korvane
