// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <functional>
#include <string_view>
#include <vector>

namespace korvane {

using Paths = std::vector<std::filesystem::path>;

// One read of each file into a buffer, which is kept, and one search for every CR in it.
std::function<void()> BareRead(Paths files);

// Writes the bytes as the file and waits for the disk.
void PlainWrite(const std::filesystem::path& file, std::string_view bytes);

std::string ReadWhole(const std::filesystem::path& file);

}  // namespace korvane
