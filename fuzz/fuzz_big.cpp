// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as one of the game's archives.
#include "FuzzFolder.h"
#include "stock/BigArchive.h"
#include "stock/RestorePath.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace korvane;
  static const FuzzFolder folder;
  folder.write("x.big", {reinterpret_cast<const char*>(data), size});
  try {
    BigArchive archive(folder.path() + "/x.big");
    for (const BigArchive::Entry& entry : archive.entries()) {
      Require(archive.find(entry.path) != nullptr);
      std::uint64_t length = 0;
      archive.read(entry, [&length](std::string_view piece) { length += piece.size(); });
      Require(length == entry.size);
      const auto target = SafeTarget(folder.path(), entry.path);
      Require(!target || target->find("..\\") == std::string::npos);
    }
  } catch (const ArchiveError&) {  // the promised answer to damage
  }
  return 0;
}
