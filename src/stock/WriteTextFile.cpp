// SPDX-License-Identifier: GPL-3.0-or-later
#include "stock/WriteTextFile.h"

#include <filesystem>
#include <system_error>

#include "files/NativePath.h"
#include "files/WholeFile.h"

namespace korvane {

namespace {

namespace fs = std::filesystem;

// Why the folders on the way to a file are not there; none when they are.
std::error_code MakeFolders(std::string_view path) {
  std::error_code error;
  for (std::size_t end = path.find('\\'); end != std::string::npos; end = path.find('\\', end + 1)) {
    const fs::path folder = NativePath(ProgramPath(path.substr(0, end + 1)));
    fs::create_directory(folder, error);
    std::error_code ignored;
    if (error && !fs::is_directory(folder, ignored)) break;  // what is there may be another user's
    error.clear();
  }
  return error == std::errc::file_exists ? std::make_error_code(std::errc::not_a_directory) : error;
}

}  // namespace

std::string WriteTextFile(std::string_view path, const GiveText& give) {
  if (const std::error_code error = MakeFolders(path)) return error.message();
  WholeFile file(NativePath(ProgramPath(path)));
  give([&file](std::string_view piece) { file.write(piece); });
  return file.create();
}

}  // namespace korvane
