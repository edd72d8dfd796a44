// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QString>

namespace korvane {

// A drawing of the program's own set (the file names of resources/icons without ending). It is drawn in the
// text colour of the palette of the moment, so that it follows a switch between light and dark. A name that
// the set does not have gives an empty icon.
QIcon ThemeIcon(const QString& name);

QIcon ApplicationIcon();

}  // namespace korvane
