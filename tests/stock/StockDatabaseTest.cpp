// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "stock/StockFiles.h"
#include "stock/StockTable.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

const StockRecords kThree = {{"Data\\a.ini", "first"}, {"Data\\b.ini", "second"}, {"Data\\c.ini", "third"}};

class StockDatabase : public testing::Test {
 protected:
  void write(const RawDatabase& raw) {
    folder.write("Data.dbf", raw.table);
    folder.write("Data.dbt", raw.memos);
  }
  void load(const RawDatabase& raw) {
    write(raw);
    database.LoadDatabase(folder.path(), "Data");
  }
  // The failure of reading everything, or none.
  std::optional<DatabaseError> failure(const RawDatabase& raw) {
    try {
      load(raw);
      for (; !database.AtEnd(); database.MoveNext()) {
        for (int field = 0; field < 3; ++field) database.GetData(field);
      }
      database.RecordCount();
      return std::nullopt;
    } catch (const DatabaseError& error) {
      return error;
    }
  }

  GameFolder folder;
  DBCtl database{StoreBytes};
};

TEST_F(StockDatabase, IsWalkedRecordByRecord) {
  load(RawDatabase(kThree));
  int changes = 0;
  database.RecordChange = [&] { ++changes; };
  EXPECT_EQ(database.RecordCount(), 3);
  database.MoveNext();
  EXPECT_EQ(database.RecordPosition(), 1);
  database.MovePrevious();
  EXPECT_EQ(database.GetData("path"), "Data\\a.ini");
  database.SetRecord(2);
  EXPECT_EQ(database.GetData(1), "third");
  EXPECT_EQ(database.GetData("SIZE"), "5");
  database.SetRecord(3);
  EXPECT_TRUE(database.AtEnd());
  EXPECT_EQ(changes, 4);
  EXPECT_THROW(database.GetData(0), DatabaseError);
  EXPECT_THROW(database.MoveNext(), DatabaseError);
  database.MovePrevious();
  EXPECT_EQ(database.GetData(0), "Data\\c.ini");
}

TEST_F(StockDatabase, DoesNotShowDeletedRecords) {
  for (const std::size_t deleted : {0U, 1U, 2U}) {
    RawDatabase raw(kThree);
    raw.table[RawDatabase::kHeader + deleted * RawDatabase::kRecord] = '*';
    load(raw);
    StockRecords expected = kThree;
    expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(deleted));
    EXPECT_EQ(database.RecordCount(), 2);
    EXPECT_EQ(ReadAll(database), expected);
    database.SetRecord(1);
    EXPECT_EQ(database.GetData(0), expected[1].first);
  }
}

TEST_F(StockDatabase, FindsItsWayInALongTable) {
  constexpr std::size_t rows = 5000;
  StockRecords expected;
  for (std::size_t row = 0; row < rows; ++row) expected.emplace_back(std::to_string(row), "x");
  RawDatabase raw(expected, MemoKind::version4, 16);
  for (std::size_t row = rows; row-- > 0;) {
    if (row % 7 != 0 && row < 4000) continue;
    raw.table[RawDatabase::kHeader + row * RawDatabase::kRecord] = '*';
    expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(row));
  }
  load(raw);
  database.SetRecord(3000);
  EXPECT_EQ(database.GetData(0), expected[3000].first);
  database.SetRecord(0);
  EXPECT_EQ(database.RecordCount(), static_cast<std::int64_t>(expected.size()));
  EXPECT_EQ(ReadAll(database), expected);
}

TEST_F(StockDatabase, KnowsBothKindsOfMemosInAnyBlockSize) {
  StockRecords records;
  for (const std::size_t size :
       {1U, 63U, 64U, 503U, 504U, 505U, 510U, 511U, 512U, 2000U, 65534U, 65535U, 65536U}) {
    records.emplace_back("Data\\" + std::to_string(size), std::string(size - 1, 'x') + "y");
  }
  for (const std::uint64_t block : {64U, 512U, 1000U, 4096U}) {
    load(RawDatabase(records, MemoKind::version4, block));
    EXPECT_EQ(ReadAll(database), records) << block;
  }
  load(RawDatabase(records, MemoKind::version3));
  EXPECT_EQ(ReadAll(database), records);
}

TEST_F(StockDatabase, IgnoresWhatMeansNothing) {
  struct Case {
    const char* name;
    void (*change)(RawDatabase&);
  };
  const Case cases[] = {
      {"year", [](RawDatabase& raw) { raw.table[1] = '\xff'; }},
      {"end mark", [](RawDatabase& raw) { raw.table += '\x1a'; }},
      {"count beyond the file",
       [](RawDatabase& raw) {
         Put(raw.table, 4, "\xff\xff\xff\xff");
         raw.table += '\x1a';
       }},
      {"bytes behind the records", [](RawDatabase& raw) { raw.table += std::string(50, 'x'); }},
      {"block size of 0", [](RawDatabase& raw) { Put(raw.memos, 20, LittleBytes(0, 2)); }},
      {"free blocks in a circle",
       [](RawDatabase& raw) {
         Put(raw.memos, 0, LittleBytes(4, 4));
         raw.memos += LittleBytes(4, 4);
       }},
  };
  for (const Case& test : cases) {
    RawDatabase raw(kThree);
    test.change(raw);
    load(raw);
    EXPECT_EQ(ReadAll(database), kThree) << test.name;
  }
}

TEST_F(StockDatabase, TellsWhatIsWrongWithDamagedFiles) {
  constexpr std::size_t record = RawDatabase::kHeader;
  struct Case {
    const char* name;
    void (*spoil)(RawDatabase&);
    int number;
    const char* says;
  };
  const Case cases[] = {
      {"empty table file", [](RawDatabase& raw) { raw.table.clear(); }, 3170, "not a dBASE table"},
      {"text file", [](RawDatabase& raw) { raw.table = "Object Tank\r\nEnd\r\n"; }, 3170,
       "not a dBASE table"},
      {"other version", [](RawDatabase& raw) { raw.table[0] = '\xf5'; }, 3170, "not a dBASE table"},
      {"only the version", [](RawDatabase& raw) { raw.table.resize(1); }, 3274, "header is cut off"},
      {"half a header", [](RawDatabase& raw) { raw.table.resize(70); }, 3274, "header is cut off"},
      {"header of no length", [](RawDatabase& raw) { Put(raw.table, 8, LittleBytes(0, 2)); }, 3274,
       "list of fields"},
      {"header too short", [](RawDatabase& raw) { Put(raw.table, 8, LittleBytes(96, 2)); }, 3274,
       "list of fields"},
      {"header too long", [](RawDatabase& raw) { Put(raw.table, 8, "\xff\xff"); }, 3274, "header is cut off"},
      {"records of no length", [](RawDatabase& raw) { Put(raw.table, 10, LittleBytes(0, 2)); }, 3274,
       "do not fill"},
      {"records too long", [](RawDatabase& raw) { Put(raw.table, 10, "\xff\xff"); }, 3274, "do not fill"},
      {"field too long", [](RawDatabase& raw) { raw.table[32 + 16] = '\xff'; }, 3274, "do not fill"},
      {"no fields", [](RawDatabase& raw) { raw.table[32] = '\r'; }, 3274, "do not fill"},
      {"no records", [](RawDatabase& raw) { raw = RawDatabase({}); }, 3021, "no records"},
      {"count of 0", [](RawDatabase& raw) { Put(raw.table, 4, LittleBytes(0, 4)); }, 3021, "no records"},
      {"4 GB claimed, nothing there",
       [](RawDatabase& raw) {
         raw.table.resize(record);
         Put(raw.table, 4, "\xff\xff\xff\xff");
       },
       3274, "records at its end are missing"},
      {"4 GB claimed, the end follows",
       [](RawDatabase& raw) {
         raw.table.resize(record);
         raw.table += '\x1a';
         Put(raw.table, 4, "\xff\xff\xff\xff");
       },
       3021, "no records"},
      {"cut off between two records",
       [](RawDatabase& raw) { raw.table.resize(record + RawDatabase::kRecord); }, 3274,
       "records at its end are missing"},
      {"last record cut off", [](RawDatabase& raw) { raw.table.pop_back(); }, 3274, "last record is cut off"},
      {"no deletion mark", [](RawDatabase& raw) { raw.table[record + RawDatabase::kRecord] = 'x'; }, 3274,
       "no beginning"},
      {"text as block number", [](RawDatabase& raw) { Put(raw.table, record + RawDatabase::kMemo, "first"); },
       3274, "number is due"},
      {"negative block number",
       [](RawDatabase& raw) { Put(raw.table, record + RawDatabase::kMemo, "        -1"); }, 3274,
       "number is due"},
      {"text as number", [](RawDatabase& raw) { Put(raw.table, record + RawDatabase::kSize, "1-2.."); }, 3274,
       "number is due"},
      {"block past the end",
       [](RawDatabase& raw) { Put(raw.table, record + RawDatabase::kMemo, "         4"); }, 3274,
       "no block 4"},
      {"block far past the end",
       [](RawDatabase& raw) { Put(raw.table, record + RawDatabase::kMemo, "9999999999"); }, 3274, "no block"},
      {"empty memo file", [](RawDatabase& raw) { raw.memos.clear(); }, 3274, "no header"},
      {"memo file of a header only", [](RawDatabase& raw) { raw.memos.resize(512); }, 3274, "no block 1"},
      {"4 GB memo claimed", [](RawDatabase& raw) { Put(raw.memos, 516, "\xff\xff\xff\xff"); }, 3274,
       "longer than the file"},
      {"memo shorter than its head", [](RawDatabase& raw) { Put(raw.memos, 516, LittleBytes(7, 4)); }, 3274,
       "longer than the file"},
      {"memo without mark", [](RawDatabase& raw) { raw.memos[512] = 'x'; }, 3274, "no beginning"},
      {"memo cut off", [](RawDatabase& raw) { raw.memos.resize(3 * 512 + 10); }, 3274,
       "longer than the file"},
      {"memo of version III without end",
       [](RawDatabase& raw) {
         raw = RawDatabase(kThree, MemoKind::version3);
         raw.memos.resize(3 * 512 + 5);
       },
       3274, "no end"},
  };
  for (const Case& test : cases) {
    RawDatabase raw(kThree);
    test.spoil(raw);
    const std::optional<DatabaseError> error = failure(raw);
    ASSERT_TRUE(error) << test.name;
    EXPECT_EQ(error->number(), test.number) << test.name << ": " << error->what();
    EXPECT_NE(std::string(error->what()).find(test.says), std::string::npos)
        << test.name << ": " << error->what();
  }
}

TEST_F(StockDatabase, NeedsBothFiles) {
  write(RawDatabase(kThree));
  for (const char* file : {"Data.dbt", "Data.dbf"}) {
    std::filesystem::remove(folder.native(file));
    try {
      database.LoadDatabase(folder.path(), "Data");
      FAIL() << file;
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.number(), 3024);
    }
    EXPECT_THROW(database.MoveNext(), DatabaseError) << "a table that failed to open is closed";
  }
}

TEST_F(StockDatabase, StoresIntoTheRecordAndItsMemo) {
  for (const MemoKind kind : {MemoKind::version3, MemoKind::version4}) {
    load(RawDatabase(kThree, kind));
    database.SetRecord(1);
    database.SetData(0, "Data\\other.ini");
    database.SetData("TEXT", std::string(5000, 'z'));
    database.SetData("SIZE", " 5000");
    EXPECT_EQ(database.GetData("SIZE"), "5000");
    EXPECT_THROW(database.SetData("SIZE", "many"), DatabaseError);
    EXPECT_THROW(database.SetData(0, std::string(21, 'x')), DatabaseError);
    DBCtl again;
    again.LoadDatabase(folder.path(), "Data.DBF");
    EXPECT_EQ(ReadAll(again),
              (StockRecords{kThree[0], {"Data\\other.ini", std::string(5000, 'z')}, kThree[2]}));
  }
}

TEST_F(StockDatabase, KeepsItsContentsWhenTheyCannotBeReplaced) {
  write(RawDatabase(kThree));
  for (const ReplaceFile& replace : {ReplaceFile(), ReplaceFile([](auto...) { return "disk full"; })}) {
    DBCtl readOnly(replace);
    readOnly.LoadDatabase(folder.path(), "Data");
    EXPECT_THROW(readOnly.SetData(1, "new"), DatabaseError);
    EXPECT_EQ(ReadAll(readOnly), kThree);
  }
}

TEST_F(StockDatabase, IsClosedWhenItsFilesAreGoneAfterStoring) {
  struct Case {
    const char* reason;
    const char* says;
  };
  for (const Case& test : {Case{"disk full", "disk full"}, Case{"", "memo file"}}) {
    write(RawDatabase(kThree));
    DBCtl losing([&](auto...) {
      std::filesystem::remove(folder.native("Data.dbt"));
      return test.reason;
    });
    losing.LoadDatabase(folder.path(), "Data");
    try {
      losing.SetData(0, "new");
      FAIL() << test.says;
    } catch (const DatabaseError& error) {
      EXPECT_EQ(error.failure(), DatabaseFailure::cannotStore);
      EXPECT_NE(std::string(error.what()).find(test.says), std::string::npos) << error.what();
    }
    EXPECT_THROW(losing.GetData(1), DatabaseError);
    EXPECT_THROW(losing.SetData(1, "text"), DatabaseError);
  }
}

TEST_F(StockDatabase, IsPackedWholeOrNotAtAll) {
  {
    StockTable table(folder.native("Data"));
    table.add("Data\\a.ini", "text");
    EXPECT_THROW(table.add(std::string(255, 'x'), "text"), std::runtime_error);
    EXPECT_THROW(table.add("Data\\\xc3\xa4.ini", "text"), std::runtime_error);
  }
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.native("")), {}), 1)
      << "only the folder Data";
}

TEST(StockTable, AFileThatChangesMeanwhileIsNotPacked) {
  const auto give = [](const TakePiece& take) { take("text"); };
  for (const std::uint64_t size : {std::uint64_t{3}, std::uint64_t{5}}) {
    const GameFolder folder;
    StockTable table(folder.native("Data"));
    EXPECT_THROW(table.add("Data\\INI\\Weapon.ini", size, give), std::runtime_error) << size;
  }
}

}  // namespace
}  // namespace korvane
