// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace korvane {

class FileWriter;
class KeptVersions;

// Writes the file at the program's path anew with all line ends as CR LF, as saving it in the manual editor
// does; its former version is kept. Gives the reason why not, or an empty text. Other programs' changes while
// it is converted are never overwritten.
QString ConvertLineEnds(const QString& path, const FileWriter& writer, const KeptVersions& versions);

}  // namespace korvane
