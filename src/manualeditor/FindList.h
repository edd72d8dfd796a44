// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QComboBox;

namespace korvane {

// Removes every item that is equal, letter case included, to one above it. The text in the box stays.
void RemoveDuplicates(QComboBox& list);

}  // namespace korvane
