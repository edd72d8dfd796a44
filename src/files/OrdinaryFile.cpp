// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/OrdinaryFile.h"

#include <exception>
#include <filesystem>

#include "files/NativePath.h"

namespace korvane {

bool OpenOrdinaryFile(std::string_view path, std::ifstream& file) {
  file = std::ifstream();
  try {
    const std::filesystem::path native = NativePath(path);
    if (!std::filesystem::is_regular_file(native)) return false;
    file.rdbuf()->pubsetbuf(nullptr, 0);
    file.open(native, std::ios::binary);
    return file.is_open();
  } catch (const std::exception&) {  // no such path, no permission
    return false;
  }
}

}  // namespace korvane
