// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/ProcessEnd.h"

#include <cstdlib>

namespace korvane {

void RealProcessEnd::end() {
  std::_Exit(EXIT_SUCCESS);
}

}  // namespace korvane
