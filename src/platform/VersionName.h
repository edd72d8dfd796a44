// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace korvane {

// One version that was kept of a file, as its name tells it.
struct KeptVersion {
  enum class Kind { replaced, closedUnsaved, lostInCrash };

  QString file{};      // native path
  quint64 number = 0;  // grows with every version of a file; 0: of an earlier release, older than all others
  QDateTime time{};    // UTC
  Kind kind = Kind::replaced;
  bool part = false;  // only a part of the file
  bool utf8 = false;  // a text with characters that no file can hold; else the file's bytes (Windows1252.h)

  bool operator==(const KeptVersion&) const = default;
  bool isUnsaved() const { return kind != Kind::replaced; }
};

// A file's name as far as it fits into the names that are made of it: its end.
QString FittingName(QString name);

// The name of a version of a file: "00000012 2026-11-23 06.08.45Z unsaved-part-utf8 Weapon.ini".
QString NameOfVersion(const KeptVersion& version, const QString& fileName);

// What a name tells; `file` stays empty. Nothing for a file that is no version. Names of earlier releases,
// "2026-11-23 06.08.45.123 unsaved part of Weapon.ini" with the local time, have the number 0; they do not
// tell a crash and UTF-8.
std::optional<KeptVersion> VersionOfName(const QString& name);

}  // namespace korvane
