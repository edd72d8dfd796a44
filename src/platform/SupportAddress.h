// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace korvane {

// Where users are asked to write to.
inline QString SupportAddress() {
  return QStringLiteral("support@ferncastle.example");
}

}  // namespace korvane
