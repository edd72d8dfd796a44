// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace korvane {

// Which block of a file is shown for a name, and where that differs from what the game reads. Lines are
// counted from 1 as an editor counts them: each CR LF, CR or LF ends one. 0 stands for no line.
struct ShownBlock {
  std::size_t line = 0;          // the header of the block that is shown
  std::string name;              // in that header, in the file's bytes
  std::size_t lastLine = 0;      // the "End" in the first column that ends it, else the file's last
  std::size_t hiddenLines = 0;   // of the same block, behind that End
  std::size_t strangeLines = 0;  // at the shown block's end, which belong to what follows it
  std::size_t ownLine = 0;       // the first header with the name itself, however it is written
  std::string ownKind;           // of that header: the kind, or ObjectReskin
  std::string ownBase;           // what a reskin borrows from
};

// The block of the kind that is shown for the name: the first whose header begins with both, in any letter
// case. `bytes`: the whole file.
ShownBlock FindShownBlock(std::string_view bytes, std::string_view kind, std::string_view name);

}  // namespace korvane
