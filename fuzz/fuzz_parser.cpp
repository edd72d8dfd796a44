// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as an INI file, held against a second version of the grammar. The input is a kind word, a name, a
// parameter key (each ended by a line feed) and the file.
#include <cstdint>

#include "FuzzFolder.h"
#include "support/AgainstSlowIni.h"

namespace {

std::string TakeLine(std::string& input) {
  const std::string line = input.substr(0, input.find('\n'));
  input.erase(0, line.size() + 1);
  return line;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const korvane::FuzzFolder folder;
  std::string file(reinterpret_cast<const char*>(data), size);
  const std::string kind = TakeLine(file);
  const std::string name = TakeLine(file);
  const std::string key = TakeLine(file);
  folder.write("Data/INI/Weapon.ini", file);
  korvane::Require(korvane::DifferenceFromSlowIni(folder.path(), file, kind, name, key).empty());
  return 0;
}
