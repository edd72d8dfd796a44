// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace korvane {

// Goes through the wizard's window from its first step to its last: chooses the game folder, stores it and
// restores the game's files from the stock database "Data" in `folder`, or from the game's archives. The
// settings are in "settings" below `folder`. Gives all that the user is told did not work.
QString RunWizard(const QString& game, const QString& folder);

}  // namespace korvane
