// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>

namespace korvane {

// Lets pending window events run; called for every line that is read.
using Yield = std::function<void()>;

}  // namespace korvane
