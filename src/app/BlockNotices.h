// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>
#include <string_view>
#include <vector>

#include "catalogue/ShownBlock.h"
#include "controls/NoticeBar.h"

namespace korvane {

class EditorLauncher;
struct Folders;

// A block that a window shows: the kind and the name that were looked for, and the file that was read.
struct LookedFor {
  QString file;           // the program's path
  std::string_view kind;  // "Object", "Weapon" ...
  QString name;
};

// From the file as it lies on the disk now; nothing where it cannot be read.
std::optional<ShownBlock> ReadShownBlock(const LookedFor& sought);

// What a window has to say where the block that it shows is not what its name promises: the block is another
// one, or not there, or it ends elsewhere. Links open the manual editor at the line.
std::vector<Notice> NoticesOf(const ShownBlock& block, const LookedFor& sought, EditorLauncher& launcher);

// The same, from the file as it lies on the disk now. Nothing where it cannot be read.
std::vector<Notice> ReadNotices(const LookedFor& sought, EditorLauncher& launcher, ShownBlock& block);

// Adds a link that opens the manual editor on the whole file at the line (from 1).
Notice& AddLine(Notice& notice, const QString& caption, const QString& file, std::size_t line,
                EditorLauncher& launcher);

}  // namespace korvane
