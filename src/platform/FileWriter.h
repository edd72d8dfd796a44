// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <string_view>

#include "files/SafeReplace.h"

namespace korvane {

// The writing of files/ as the windows use it. Paths are the program's own or native ones (see NativePath.h).
// Every operation gives an empty text when it is done, else the system's reason; what was there before is
// then there again.
class FileWriter {
 public:
  // Keeps the former version right before it goes, and says why it cannot: nothing is then written.
  using Keep = std::function<QString(ReplaceWay)>;

  // Replaces the file, or creates it; the promises are those of SafeReplace: whole or not at all, owner,
  // rights and attributes stay, and it is written in place only where it must be, after `keep` kept the
  // former version as a file of its own.
  [[nodiscard]] QString replace(const QString& path, std::string_view bytes, const Keep& keep = {}) const;

  // Writes a new file whole. Whatever has that name already is never touched, not even when it appears
  // meanwhile.
  [[nodiscard]] QString create(const QString& path, std::string_view bytes) const;
  // The same with a file that only its user can read.
  [[nodiscard]] QString createPrivate(const QString& path, std::string_view bytes) const;

  // Makes a hard link at `name` (native path), so that the old contents stay there when the file is replaced:
  // the cheapest copy there is. Not for a file that has several names already, as it can change under each of
  // them, and not from one disk to another.
  [[nodiscard]] QString keepAs(const QString& path, const QString& name) const;
};

}  // namespace korvane
