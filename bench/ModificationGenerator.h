// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>

namespace korvane {

// Writes a made-up modification below a folder (native path), laid out as published ones are: at factor 1 110
// files in nested folders, 22 MB in all, the largest of 2 MB, with 20,000 items that name each other 60,000
// times. A few of the names are defined nowhere. At larger factors there are so many times more files of the
// same size, and more items to name. The same factor gives the same bytes everywhere. Throws
// std::filesystem::filesystem_error or std::ios_base::failure when something cannot be written.
void GenerateModification(const std::filesystem::path& folder, int factor);

}  // namespace korvane
