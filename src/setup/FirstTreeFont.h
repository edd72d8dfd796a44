// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

namespace korvane {

class SettingsStore;

// Where no font was ever stored for the object tree, stores the desktop's own one, plain and at its own size.
void StoreFirstTreeFont(SettingsStore& store);

}  // namespace korvane
