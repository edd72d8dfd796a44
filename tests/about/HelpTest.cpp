// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QRegularExpression>
#include <QTextDocument>

#include <algorithm>

#include "about/HelpFile.h"
#include "about/HelpSearch.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

using namespace std::string_literals;

// The help file as the program ships it.
const HelpFile& Shipped() {
  static const HelpFile file(KORVANE_HELP_FILE);
  return file;
}

TEST(Help, EveryTopicHasAPage) {
  EXPECT_EQ(Shipped().problem(), "");
  for (const int topic : {62, 63, 1010, 1020, 1030, 1040}) {
    const HelpPage* page = Shipped().topic(topic);
    ASSERT_NE(page, nullptr) << topic;
    EXPECT_FALSE(page->title.isEmpty()) << topic;
  }
  EXPECT_EQ(Shipped().topic(0), nullptr);
  EXPECT_EQ(Shipped().topic(4711), nullptr);
}

TEST(Help, EveryLinkLeadsSomewhere) {
  static const QRegularExpression link("\\]\\(([^)]*)\\)");
  int links = 0;
  for (const HelpPage& page : Shipped().pages()) {
    for (const QRegularExpressionMatch& match : link.globalMatch(page.markdown)) {
      const QString target = match.captured(1);
      ++links;
      EXPECT_TRUE(target.startsWith("https://") || Shipped().page(target) != nullptr)
          << page.name.toStdString() << " links to " << target.toStdString();
    }
  }
  EXPECT_GT(links, 0);
}

TEST(Help, TheContentsListEveryPageOnceUnderItsTitle) {
  QStringList listed{Shipped().pages().front().name};
  for (const ContentsEntry& entry : Shipped().contents()) {
    const HelpPage* page = Shipped().page(entry.page);
    ASSERT_NE(page, nullptr) << entry.page.toStdString();
    EXPECT_EQ(entry.title, page->title);
    EXPECT_FALSE(entry.heading.isEmpty());
    listed += entry.page;
  }
  QStringList all;
  for (const HelpPage& page : Shipped().pages()) all += page.name;
  std::ranges::sort(listed);
  std::ranges::sort(all);
  EXPECT_EQ(listed, all);
}

TEST(Help, AFileThatIsNoHelpFileSaysWhy) {
  const GameFolder folder;
  folder.write("empty", "");
  folder.write("foreign", "\x3F\x5F\x03\x00 another program's help"s);
  folder.write("no pages", "Korvane help file, version 1\n");
  const std::pair<const char*, const char*> cases[] = {
      {"missing", "missing"},         {"Data", "missing"},      {"empty", "empty"},
      {"foreign", "not a help file"}, {"no pages", "no pages"},
  };
  for (const auto& [name, reason] : cases) {
    const HelpFile file(folder.qpath() + '\\' + name);
    EXPECT_TRUE(file.problem().contains(reason)) << file.problem().toStdString();
    EXPECT_TRUE(file.pages().empty());
    EXPECT_TRUE(file.contents().empty());
  }
}

TEST(Help, PagesThatBreakOffAreStillPages) {
  const GameFolder folder;
  folder.write("torn",
               "Korvane help file, version 1\n\fa.md\n---\ntopic: 5\n# Never "
               "closed\n\fb.md\f\f\n\fc.md\n---\n---\nText");
  const HelpFile file(folder.qpath() + "\\torn");
  EXPECT_EQ(file.problem(), "");
  EXPECT_EQ(file.topic(5), nullptr);
  ASSERT_NE(file.page("c.md"), nullptr);
  EXPECT_EQ(file.page("c.md")->markdown, "Text");
}

TEST(Help, SearchingFindsThePagesWithAllWords) {
  const GameFolder folder;
  folder.write("help",
               "Korvane help file, version 1\n"
               "\fone.md\n# One\nA *tank* and a truck, tank, Tank.\n"
               "\ftwo.md\n# The Tank\nThe truck.\n"
               "\fthree.md\n# Three\nOnly a [truck](tank.md).\n");
  const HelpFile file(folder.qpath() + "\\help");
  const HelpSearch search(file);
  const auto names = [&](const char* text) {
    QStringList found;
    for (const HelpHit& hit : search.find(SearchWords(text))) found += hit.page->name;
    return found;
  };
  EXPECT_EQ(names("tank"), QStringList({"two.md", "one.md"}));
  EXPECT_EQ(names("  TRUCK   tank "), QStringList({"two.md", "one.md"}));
  EXPECT_EQ(names("truck").size(), 3);
  EXPECT_EQ(names("truck ship"), QStringList());
  EXPECT_EQ(names(" "), QStringList());
}

}  // namespace
}  // namespace korvane
