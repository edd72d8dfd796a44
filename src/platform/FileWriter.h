// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <string_view>

namespace korvane {

// The only place in which the program opens a user's file for writing. Paths are the program's own or native
// ones (see NativePath.h). Every operation gives an empty text when it is done, else the system's reason;
// what was there before is then untouched.
class FileWriter {
 public:
  // Replaces the file whole, or creates it; the bytes are on the disk before the old file goes. A symbolic
  // link stays a link to the file, permissions stay as they are, another hard link keeps the old file.
  [[nodiscard]] QString replace(const QString& path, std::string_view bytes) const;

  // Writes a new file whole. Whatever has that name already is never touched, not even when it appears
  // meanwhile.
  [[nodiscard]] QString create(const QString& path, std::string_view bytes) const;

  // Makes a hard link at `name` (native path), so that the old contents stay there when the file is replaced:
  // the cheapest copy there is. Not for a file that has several names already, as it can change under each of
  // them, and not from one disk to another.
  [[nodiscard]] QString keepAs(const QString& path, const QString& name) const;

  // Replaces a file whole without forcing it to disk: it survives a crash of the program, but perhaps not a
  // power cut. For what is written often and needed seldom.
  [[nodiscard]] QString note(const QString& path, std::string_view bytes) const;
};

}  // namespace korvane
