// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

class QWidget;

namespace korvane {

// The name of the property that holds a control's string id.
inline constexpr const char* kTag = "tag";

// The string of the id; empty when the table has none.
QString ResString(int id);

// The string of the id, joined with those of the following ids for as long as it ends in "_".
QString GetResString(int id);

// Gives the window and its controls the captions and tooltips whose ids they carry as tags, or as numbers in
// place of the text.
void LoadResStrings(QWidget& window);

}  // namespace korvane
