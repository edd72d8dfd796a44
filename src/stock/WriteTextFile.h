// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "stock/RandomFile.h"

namespace korvane {

// Hands out a text in pieces.
using GiveText = std::function<void(const TakePiece&)>;

// Makes every folder on the program's path, then writes the new file, whole or not at all. Whatever has that
// name already is never touched. Gives the system's reason of a failure, in its own encoding, or nothing when
// the bytes are on the disk. What `give` throws passes through; nothing is then left of the file.
std::string WriteTextFile(std::string_view path, const GiveText& give);

}  // namespace korvane
