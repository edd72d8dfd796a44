// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvane {

// From now on screen readers take each window for one; Qt tells it only of main windows and dialogs.
void InstallWindowRoles();

}  // namespace korvane
