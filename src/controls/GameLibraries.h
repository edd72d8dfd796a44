// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "controls/FolderPlaces.h"

namespace korvane {

// The folders below the user's home, and on the other disks that Steam names, in which Wine, Steam with
// Proton, Lutris, Bottles and Flatpak keep games; those that exist and are not among `known` already.
QList<FolderPlace> GameLibraries(const QList<FolderPlace>& known);

}  // namespace korvane
