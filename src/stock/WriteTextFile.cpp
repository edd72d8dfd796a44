// SPDX-License-Identifier: GPL-3.0-or-later
#include "stock/WriteTextFile.h"

#include <filesystem>
#include <system_error>

#include "files/NativePath.h"
#include "files/WholeFile.h"

namespace korvane {

std::string WriteTextFile(std::string_view path, const GiveText& give) {
  std::error_code error;
  for (std::size_t end = path.find('\\'); end != std::string::npos; end = path.find('\\', end + 1)) {
    std::filesystem::create_directory(NativePath(path.substr(0, end + 1)), error);
  }
  // Only the file's own folder matters: those above it may be another user's.
  if (error == std::errc::file_exists) error = std::make_error_code(std::errc::not_a_directory);
  if (error) return error.message();
  WholeFile file(NativePath(path));
  give([&file](std::string_view piece) { file.write(piece); });
  return file.create();
}

}  // namespace korvane
