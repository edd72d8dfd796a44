// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>
#include <vector>

namespace korvane {

// The text of a settings file in the INI format of QSettings: UTF-8, "[Section]" lines, "key=value" lines. A
// change touches the lines of its own entry; every other byte stays as it is.
class SettingsText {
 public:
  SettingsText() = default;
  // Nothing when the bytes are no such text: a line that is neither entry nor section, quotes or brackets
  // that do not end, a zero byte.
  static std::optional<SettingsText> Read(const QByteArray& bytes);

  std::optional<QString> find(const QString& section, const QString& key) const;
  void set(const QString& section, const QString& key, const QString& value);
  void remove(const QString& section);
  QByteArray bytes() const;

 private:
  enum class Kind { other, section, entry };
  struct Line {
    QByteArray bytes;  // with its end
    Kind kind = Kind::other;
    QString section;  // the one that the line belongs to, or begins
    QString key;
  };

  bool readLine(const QByteArray& bytes, QString& section);
  bool readEntry(Line line);
  // Where a new entry of the section goes: behind its last one. At the end when there is no such section.
  std::size_t endOf(const QString& section) const;
  void beginSection(const QString& section);

  std::vector<Line> lines_;
  QHash<QString, QString> values_;  // by section, "/" and key
};

}  // namespace korvane
