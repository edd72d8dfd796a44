// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace korvane {

// What a stretch of the game's data text is, for its colour. The values are style numbers of the text
// control.
enum class TextKind : char { plain, comment, header, end, key, value };

// Writes the kind of every byte of `text` to `kinds`, which holds as many. `text` starts at the start
// of a line; each line stands for itself, whatever the lines around it hold.
void KindsOf(std::string_view text, char* kinds);

}  // namespace korvane
