// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string_view>

namespace korvane {

// A remark that names the data files whose lines end in LF alone, since each of them reads as one line; an
// empty text when there are none. `gameFolder` is the program's path.
QString RemarkOnUnixLineEnds(std::string_view gameFolder);

}  // namespace korvane
