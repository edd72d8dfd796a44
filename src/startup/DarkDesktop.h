// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvane {

// Gives the windows dark colours where the user's Windows is dark. To be called before there is an
// application. Other desktops hand their colours to Qt by themselves.
void FollowDarkDesktop();

}  // namespace korvane
