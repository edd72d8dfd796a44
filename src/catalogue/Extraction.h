// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace korvane {

// Writes a text that an archive or a further folder has as the game folder's own file of the same path below
// it ("Data\INI\Weapon.ini"), which from then on comes before the other. Whatever has that name already is
// never touched, and nothing is written outside of Data\INI. Gives the reason of a failure as a clause, or
// nothing when the bytes are on the disk.
std::string ExtractText(std::string_view gameFolder, std::string_view path, std::string_view bytes);

}  // namespace korvane
