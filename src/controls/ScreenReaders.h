// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QVariant>

namespace korvane {

// From now on screen readers take each window for one; Qt tells it only of main windows and dialogs.
void InstallWindowRoles();

// The headerData of a model with one column whose heading is not seen, but read.
QVariant UnseenHeading(const char* heading, Qt::Orientation orientation, int role);

}  // namespace korvane
