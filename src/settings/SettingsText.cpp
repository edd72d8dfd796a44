// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingsText.h"

#include <algorithm>

#include "settings/IniEscapes.h"

namespace korvane {

namespace {

const QByteArray kByteOrderMark = QByteArrayLiteral("\xef\xbb\xbf");
const QByteArray kGeneral = QByteArrayLiteral("General");  // entries without a section
const QByteArray kNamedGeneral = QByteArrayLiteral("%General");

QString EntryName(const QString& section, const QString& key) {
  return section + '/' + key;
}

QString SectionOf(const QByteArray& name) {
  if (name.compare(kGeneral, Qt::CaseInsensitive) == 0) return {};
  if (name.compare(kNamedGeneral, Qt::CaseInsensitive) == 0) return kGeneral;
  return UnescapedIniKey(name);
}

QByteArray SectionLine(const QString& section) {
  if (section.isEmpty()) return '[' + kGeneral + "]\n";
  if (section.compare(kGeneral, Qt::CaseInsensitive) == 0) return '[' + kNamedGeneral + "]\n";
  return '[' + EscapedIniKey(section) + "]\n";
}

// The end of the line that starts at `at`: a line break in quotes or behind a backslash does not end it, a
// remark begins a line of its own. Nothing when quotes do not end.
std::optional<qsizetype> LineEnd(const QByteArray& bytes, qsizetype at) {
  const bool isRemark = bytes[at] == ';';
  bool inQuotes = false;
  for (qsizetype i = at; i < bytes.size(); ++i) {
    const char c = bytes[i];
    if (c == '\n' && !inQuotes) return i + 1;
    if (isRemark) continue;
    if (c == ';' && !inQuotes && i > at) return i;
    if (c == '"') inQuotes = !inQuotes;
    if (c == '\\') i += bytes.mid(i + 1, 2) == "\r\n" ? 2 : 1;
  }
  return inQuotes ? std::nullopt : std::optional(bytes.size());
}

// What a line needs so that another can stand behind it. A backslash at its end takes one line break.
QByteArray MissingEnd(const QByteArray& line) {
  QByteArray text = line;
  for (const char c : {'\n', '\r'}) {
    if (text.endsWith(c)) text.chop(1);
  }
  const auto behind = std::find_if_not(text.rbegin(), text.rend(), [](char c) { return c == '\\'; });
  const bool takesOne = (behind - text.rbegin()) % 2 != 0 && !line.startsWith(';');
  return QByteArray((line.endsWith('\n') ? 0 : 1) + (takesOne ? 1 : 0), '\n');
}

}  // namespace

std::optional<SettingsText> SettingsText::Read(const QByteArray& bytes) {
  if (bytes.contains('\0')) return std::nullopt;
  SettingsText text;
  QString section;
  qsizetype at = 0;
  if (bytes.startsWith(kByteOrderMark)) {
    text.lines_.push_back({kByteOrderMark, Kind::other, {}, {}});
    at = kByteOrderMark.size();
  }
  while (at < bytes.size()) {
    const std::optional<qsizetype> end = LineEnd(bytes, at);
    if (!end || !text.readLine(bytes.mid(at, *end - at), section)) return std::nullopt;
    at = *end;
  }
  return text;
}

bool SettingsText::readLine(const QByteArray& bytes, QString& section) {
  const QByteArray line = bytes.trimmed();
  if (line.isEmpty() || line.startsWith(';')) {
    lines_.push_back({bytes, Kind::other, section, {}});
    return true;
  }
  if (!line.startsWith('[')) return readEntry({bytes, Kind::entry, section, {}});
  if (!line.endsWith(']')) return false;
  section = SectionOf(line.mid(1, line.size() - 2).trimmed());
  lines_.push_back({bytes, Kind::section, section, {}});
  return true;
}

bool SettingsText::readEntry(Line line) {
  const qsizetype equals = line.bytes.indexOf('=');
  if (equals < 0) return false;
  line.key = UnescapedIniKey(line.bytes.left(equals).trimmed());
  const std::optional<QString> value = UnescapedIniValue(line.bytes.mid(equals + 1).trimmed());
  if (value) values_.insert(EntryName(line.section, line.key), *value);
  lines_.push_back(std::move(line));
  return true;
}

std::optional<QString> SettingsText::find(const QString& section, const QString& key) const {
  const auto found = values_.constFind(EntryName(section, key));
  return found == values_.constEnd() ? std::nullopt : std::optional(*found);
}

std::size_t SettingsText::endOf(const QString& section) const {
  for (std::size_t i = lines_.size(); i > 0; --i) {
    if (lines_[i - 1].kind == Kind::other || lines_[i - 1].section != section) continue;
    while (i < lines_.size() && !MissingEnd(lines_[i - 1].bytes).isEmpty()) ++i;  // a remark follows
    return i;
  }
  return lines_.size();
}

void SettingsText::beginSection(const QString& section) {
  if (!lines_.empty()) lines_.push_back({"\n", Kind::other, {}, {}});
  lines_.push_back({SectionLine(section), Kind::section, section, {}});
}

void SettingsText::set(const QString& section, const QString& key, const QString& value) {
  const Line line{EscapedIniKey(key) + '=' + EscapedIniValue(value) + '\n', Kind::entry, section, key};
  const auto isOld = [&](const Line& other) {
    return other.kind == Kind::entry && other.section == section && other.key == key;
  };
  if (!lines_.empty()) lines_.back().bytes += MissingEnd(lines_.back().bytes);
  const auto old = std::find_if(lines_.begin(), lines_.end(), isOld);
  if (old != lines_.end()) {
    *old = line;
    lines_.erase(std::remove_if(old + 1, lines_.end(), isOld), lines_.end());
  } else {
    const bool isNew = std::none_of(lines_.begin(), lines_.end(), [&](const Line& other) {
      return other.kind == Kind::section && other.section == section;
    });
    if (isNew) beginSection(section);
    lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(endOf(section)), line);
  }
  values_.insert(EntryName(section, key), value);
}

void SettingsText::remove(const QString& section) {
  std::vector<Line> kept;
  for (Line& line : lines_) {
    const bool goes = line.section == section && line.kind != Kind::other;
    if (!goes) kept.push_back(std::move(line));
    // The empty line above a section goes with it.
    else if (line.kind == Kind::section && !kept.empty() && kept.back().bytes.trimmed().isEmpty())
      kept.pop_back();
  }
  lines_ = std::move(kept);
  values_.removeIf(
      [&](const QHash<QString, QString>::iterator& entry) { return entry.key().startsWith(section + '/'); });
}

QByteArray SettingsText::bytes() const {
  QByteArray bytes;
  for (const Line& line : lines_) bytes += line.bytes;
  return bytes;
}

}  // namespace korvane
