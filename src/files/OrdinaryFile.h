// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <fstream>
#include <string_view>

#include "files/NativePath.h"

namespace korvane {

// Opens the file at the program's path (see NativePath.h) for reading without a buffer of the stream's own.
// False when the path names no ordinary file (a pipe would block, a folder has no bytes) or the file cannot
// be opened.
bool OpenOrdinaryFile(const ProgramPath& path, std::ifstream& file);
// The same at a native path.
bool OpenOrdinaryFile(const std::filesystem::path& path, std::ifstream& file);

}  // namespace korvane
