// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string_view>

namespace korvane {

// How the keys of object nodes begin; no node can be added below one of those.
inline constexpr std::string_view kObjectKeyPrefix = "Key";

}  // namespace korvane
