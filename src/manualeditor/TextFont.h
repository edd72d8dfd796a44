// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>

#include "controls/FontDialog.h"

namespace korvane {

class SettingsStore;

// The font of the manual editor's text as it is stored. What is not stored, or cannot be used (a font that
// this machine does not have, a size that is no number), stays as it is in `current`.
QFont StoredTextFont(const SettingsStore& settings, QFont current);

void SaveTextFont(SettingsStore& settings, const QFont& font);

// The chosen font, its other properties as in `current`.
QFont ChosenFont(const FontRecord& record, QFont current);

}  // namespace korvane
