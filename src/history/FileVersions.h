// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/KeptVersions.h"

namespace korvane {

// One state of a file: what was kept of it, or what it is now.
struct FileVersion {
  QString path{};                       // the program's; empty where it is not known
  std::optional<KeptVersion> kept{};    // none: the present text
  std::optional<std::string> edited{};  // the present text as the manual editor has it, in UTF-8
  bool unsaved = false;                 // which is not saved
  QDateTime time{};                     // not valid where there is no file
  qint64 size = 0;                      // bytes

  bool operator==(const FileVersion&) const = default;
};

// The present text, where the file's path is known, and the kept versions, the newest first. `edited` as in
// FileVersion.
std::vector<FileVersion> VersionsOf(const KeptVersions::File& file, std::optional<std::string> edited,
                                    bool unsaved);

// The text in UTF-8, all characters of it; of a file that is not there an empty one. Nothing when it cannot
// be read. For any thread.
std::optional<std::string> ReadUtf8(const FileVersion& version);
// The bytes as they are kept.
std::optional<std::string> ReadBytes(const FileVersion& version);

bool IsPart(const FileVersion& version);
// The newest kept version of a part (in UTF-8) of a file, among those in the file's folder: one that begins
// with the same line, blank ones and comments aside. Gives its native path; empty: there is none.
QString VersionOfPart(const QString& folder, std::string_view part);
// "Replaced by a save".
QString KindText(const FileVersion& version);
// "14 May 2026 18:03:22", in the user's time zone.
QString TimeText(const FileVersion& version);
// What tells it from others: "14 May 2026 18:03:22, replaced by a save".
QString TitleOf(const FileVersion& version);
// "14 May 18:03".
QString ShortTimeText(const QDateTime& time);
// "1.2 MB".
QString SizeText(qint64 bytes);

}  // namespace korvane
