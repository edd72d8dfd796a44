// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string_view>

#include "files/FileBytes.h"
#include "files/StillFile.h"

namespace korvane {

// Why the text control cannot show a text, as the start of a message that goes on with the file; an empty
// text when it can.
QString WhyNotShown(std::string_view bytes);

// Reads the whole file at the program's path, unless the manual editor cannot show it: gives the same.
QString ReadToShow(const QString& path, FileBytes& file, FileLook& look);

}  // namespace korvane
