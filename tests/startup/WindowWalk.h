// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

class QWidget;

namespace korvane {

// What somebody meets who has a keyboard and a screen reader, and neither a mouse nor a look at the window.
// Each gives a line for every fault that it finds; the window is shown and active.

// Controls that the keyboard gets to and that a screen reader cannot name, or takes for nothing in
// particular.
QStringList Nameless(QWidget& window);

// Controls that neither Tab nor Shift+Tab gets to, that hold the keyboard once it is there, or that do not
// show that it is.
QStringList FaultsByTab(QWidget& window);

// Letters with Alt that two controls of the window have, or two entries of one of its menus.
QStringList ClashingMnemonics(QWidget& window);

// Entries of context menus that only the mouse gets to.
QStringList MenusOfTheMouseOnly(QWidget& window);

}  // namespace korvane
