// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QWidget;

namespace korvane {

class SettingsStore;

// Where a window was and how large, in section "EditWH" under keys that begin with the window's objectName.
// Values are device-independent pixels of the window's outer frame; state 0 normal, 1 minimised, 2 maximised.

// A maximised window keeps the last normal size and position that were stored.
void SavePlacement(SettingsStore& store, const QWidget& window);

// Applies what is stored; a value that is no whole number of 16 bits leaves its property as it is. The window
// is made no larger than the screens, and is moved, where necessary, so that its title bar can be reached. Of
// a window that is maximised or minimised only the state changes. For a window that is about to be shown,
// call it before that: until the desktop has framed a window nobody knows how large its frame is.
void RestorePlacement(const SettingsStore& store, QWidget& window);

}  // namespace korvane
