// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringView>

#include <string>
#include <string_view>

namespace korvane {

// A text of the game's files, in the encoding of files/Windows1252.h.
QString FromBytes(std::string_view bytes);

// The bytes of a text; a character that has no byte becomes "?". For texts on their way to a look-up, where a
// name that no file can hold matches nothing.
std::string ToBytes(QStringView text);

}  // namespace korvane
