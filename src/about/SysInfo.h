// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include "platform/Registry.h"

namespace korvane {

class Programs;

// Reads the value `SubKeyRef` of the key `KeyName` below the root into `KeyVal`: a text without its
// terminating zero, a number as its decimal digits. False, and an empty text, when there is none.
bool GetKeyValue(const Registry& registry, Registry::Root KeyRoot, const QString& KeyName,
                 const QString& SubKeyRef, QString& KeyVal);

// Starts the system information program that the registry names, or else the first of the desktops' own that
// is installed. False when there is none or it cannot be started.
bool StartSystemInformation(const Registry& registry, Programs& programs);

}  // namespace korvane
