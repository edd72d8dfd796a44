// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <cstdlib>

#include "stock/StockFiles.h"
#include "stock/StockTable.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

bool Runs(const std::string& command) {
  return std::system(command.c_str()) == 0;
}

const std::string kPython = "/usr/bin/python3 ";  // the one that has the system's packages
const std::string kScripts = KORVANE_SOURCE "/tests/stock/foreign/";

#define NEEDS(command) \
  if (!Runs(std::string(command) + " 2>/dev/null")) GTEST_SKIP() << "missing here: " << (command)

// Texts whose ends lie around the edges of blocks, one with every byte value but the end mark of texts.
StockRecords Texts() {
  std::string everyByte;
  for (int c = 0; c < 256; ++c) everyByte += c == 0x1a ? '.' : static_cast<char>(c);
  StockRecords records = {{"bytes.ini", everyByte},
                          {"lines.ini", "Weapon Gun\r\n  Damage = 5 \x96 6\r\nEnd\r\n"}};
  for (const int size : {1, 502, 503, 504, 505, 509, 510, 511, 512, 513, 100000}) {
    records.emplace_back(std::to_string(size) + ".ini", std::string(static_cast<std::size_t>(size), 'x'));
  }
  return records;
}

// Texts that are text in Windows-1252, for programs that know text only.
StockRecords ReadableTexts() {
  StockRecords records = Texts();
  records.erase(records.begin());
  return records;
}

class StockForeign : public testing::Test {
 protected:
  std::string native(const char* name) { return folder.native(name).string() + " "; }

  std::string writeFiles(const StockRecords& records) {
    std::string names;
    for (const auto& [name, text] : records) {
      folder.write("in/" + name, text);
      names += native(("in/" + name).c_str());
    }
    return names;
  }
  void expectFiles(const StockRecords& records) {
    for (const auto& [name, text] : records) EXPECT_TRUE(folder.read("out/" + name) == text) << name;
  }
  StockRecords readTable() {
    database.LoadDatabase(folder.path(), "t");
    return ReadAll(database);
  }

  GameFolder folder;
  DBCtl database{StoreBytes};
};

TEST_F(StockForeign, OurTableIsReadByPerl) {
  NEEDS("perl -MXBase -e 1");
  folder.write("out/x", "");
  StockTable table(folder.native("t"));
  for (const auto& [name, text] : Texts()) table.add(name, text);
  table.commit();
  ASSERT_TRUE(Runs("perl " + kScripts + "read.pl " + native("t.DBF") + native("out")));
  expectFiles(Texts());
}

TEST_F(StockForeign, PerlsTablesAreRead) {
  NEEDS("perl -MXBase -e 1");
  const std::string files = writeFiles(Texts());
  for (const char* version : {" 0x03 ", " 0x8b "}) {
    ASSERT_TRUE(Runs("perl " + kScripts + "write.pl " + native("t.dbf") + version + files));
    EXPECT_TRUE(readTable() == Texts()) << version;
    std::filesystem::remove(folder.native("t.dbf"));
    std::filesystem::remove(folder.native("t.dbt"));
  }
}

TEST_F(StockForeign, PythonsTableIsReadAndOurChangesAreReadByPython) {
  NEEDS(kPython + "-c 'import dbf, dbfread'");
  folder.write("out/x", "");
  StockRecords texts = ReadableTexts();
  ASSERT_TRUE(Runs(kPython + kScripts + "write.py " + native("t.dbf") + writeFiles(texts)));
  EXPECT_TRUE(readTable() == texts);
  EXPECT_EQ(database.languageDriver(), 3) << "Windows-1252";
  database.SetRecord(2);
  texts[2].second = std::string(1022, 'n') + "\r\n";
  database.SetData(1, texts[2].second);
  ASSERT_TRUE(Runs(kPython + kScripts + "read.py " + native("t.dbf") + native("out")));
  expectFiles(texts);
}

}  // namespace
}  // namespace korvane
