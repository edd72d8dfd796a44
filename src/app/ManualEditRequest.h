// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>
#include <string>

namespace korvane {

struct Folders;

// A place in a text; the text's start as long as nothing is set.
struct ManualEditPlace {
  int line = 0;    // from 1; 0: nowhere in particular
  int column = 1;  // from 1, in characters, which are the file's bytes
  int length = 0;  // characters to select
  int header = 0;  // a line above it that stays in sight with it, where the window is high enough; 0: none
};

// What to open in the manual editor.
struct ManualEditRequest {
  QString ManualEditFile{};           // the program's full path
  int ManualEditPartial = 0;          // 1: only a part of that file, which cannot be saved
  std::optional<std::string> text{};  // in the file's bytes; none: the file as it is on the disk
  bool utf8 = false;                  // that text is in UTF-8 instead, with any characters
  ManualEditPlace place{};            // gone to when the window is set up
  // The archive or further folder that has the file, the program's path; the text can then only be read.
  QString archive{};
  bool onlyRead = false;  // a file that is none of the game folder's INI files
};

// Where a data file lies.
enum class DataFolder { ini = 0, objects = 1 };

// The program's full path of a data file.
QString DataFilePath(const Folders& folders, DataFolder folder, const QString& filename);

// Names the request's file and says whether it is only a part of it. Another folder changes nothing.
void SetManualEditFile(ManualEditRequest& request, const Folders& folders, int partial, DataFolder folder,
                       const QString& filename);

}  // namespace korvane
