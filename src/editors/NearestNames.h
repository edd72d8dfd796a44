// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace korvane {

// The names that were most likely meant by one that is not among them, the likeliest first; at most three,
// letter case ignored. None where all are too far away.
QStringList NearestNames(const QString& name, const QStringList& names);

}  // namespace korvane
