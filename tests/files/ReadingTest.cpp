// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "files/FileBytes.h"
#include "files/FilePieces.h"
#include "support/GameFolder.h"

#ifndef _WIN32
#include <sys/stat.h>
#endif

namespace korvane {
namespace {

std::string InPieces(FilePieces& file) {
  std::string all;
  do {
    all += file.next(0);
  } while (!file.atEnd());
  return all;
}

TEST(Reading, GivesEveryByteOfAFileOfAnySize) {
  constexpr std::size_t kMegabyte = 1 << 20;
  const GameFolder game;
  const ProgramPath path(game.path() + "\\Data\\INI\\Weapon.ini");
  FileBytes whole;
  FilePieces pieces;
  for (const std::size_t size :
       {std::size_t{0}, std::size_t{1}, FilePieces::kPiece - 1, FilePieces::kPiece, FilePieces::kPiece + 1,
        4 * kMegabyte - 1, 4 * kMegabyte, 4 * kMegabyte + 1, 9 * kMegabyte + 7}) {
    std::string bytes(size, 'a');
    for (std::size_t i = 0; i < size; i += 4099) bytes[i] = static_cast<char>(i / 4099);
    game.write("Data/INI/Weapon.ini", bytes);
    ASSERT_TRUE(whole.read(path, {}));
    EXPECT_TRUE(whole.bytes() == bytes) << size;
    ASSERT_TRUE(pieces.open(path));
    EXPECT_TRUE(InPieces(pieces) == bytes) << size;
  }
}

TEST(Reading, AFileThatShrinksMeanwhileIsNotReadWhole) {
  const GameFolder game;
  game.write("Data/INI/Weapon.ini", std::string(9 << 20, 'a'));
  FileBytes file;
  const auto shrink = [&] { std::filesystem::resize_file(game.native("Data/INI/Weapon.ini"), 1); };
  EXPECT_FALSE(file.read(ProgramPath(game.path() + "\\Data\\INI\\Weapon.ini"), shrink));
  EXPECT_TRUE(file.bytes().empty());
}

TEST(Reading, OpensOrdinaryFilesOnly) {
  const GameFolder game;
#ifndef _WIN32
  ASSERT_EQ(::mkfifo(game.native("Data/INI/pipe.ini").c_str(), 0600), 0);
#endif
  for (const char* name : {"\\Data\\INI", "\\Data\\INI\\pipe.ini", "\\Data\\INI\\none.ini"}) {
    EXPECT_FALSE(FileBytes().read(ProgramPath(game.path() + name), {})) << name;
    EXPECT_FALSE(FilePieces().open(ProgramPath(game.path() + name))) << name;
  }
}

}  // namespace
}  // namespace korvane
