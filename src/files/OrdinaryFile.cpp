// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/OrdinaryFile.h"

#include <exception>

#include "files/NativePath.h"

namespace korvane {

bool OpenOrdinaryFile(const ProgramPath& path, std::ifstream& file) {
  try {
    return OpenOrdinaryFile(NativePath(path), file);
  } catch (const std::exception&) {  // text that is no path at all
    file = std::ifstream();
    return false;
  }
}

bool OpenOrdinaryFile(const std::filesystem::path& path, std::ifstream& file) {
  file = std::ifstream();
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return false;
  file.rdbuf()->pubsetbuf(nullptr, 0);
  file.open(path, std::ios::binary);
  return file.is_open();
}

}  // namespace korvane
