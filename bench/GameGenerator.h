// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace korvane {

// Writes the thirteen data files of a made-up game below a folder (native path), as large as the original's
// at factor 1 (8 MB in all) and as many times larger as the factor says. The same factor gives the same bytes
// everywhere. What the blocks refer to exists. Throws std::filesystem::filesystem_error or
// std::ios_base::failure when something cannot be written.
void GenerateGame(const std::filesystem::path& folder, int factor);

}  // namespace korvane
