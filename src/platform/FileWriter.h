// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string_view>

namespace korvane {

// The only place that opens a user's file for writing. A file is replaced whole or not at all.
class FileWriter {
 public:
  // Replaces the file at the program's path (see NativePath.h) by `bytes`, or creates it. Gives an empty text
  // when the bytes are on the disk, else the system's reason; the old file is then untouched.
  QString replace(const QString& path, std::string_view bytes) const;
};

}  // namespace korvane
