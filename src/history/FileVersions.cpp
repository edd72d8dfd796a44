// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/FileVersions.h"

#include <QFileInfo>
#include <QLocale>

#include <utility>

#include "compare/LineDifference.h"
#include "files/FileBytes.h"
#include "files/NativePath.h"
#include "ini/IniText.h"
#include "platform/FileText.h"

namespace korvane {

namespace {

std::filesystem::path NativeOf(const FileVersion& version) {
  const QString path = version.kept ? version.kept->file : version.path;
  return NativePath(ProgramPath(path.toStdString()));
}

QString English(const QDateTime& time, const QString& format) {
  return QLocale(QLocale::English).toString(time.toLocalTime(), format);
}

FileVersion PresentOf(const QString& path, std::optional<std::string> edited, bool unsaved) {
  FileVersion present{.path = path, .edited = std::move(edited), .unsaved = unsaved};
  const QFileInfo info(QString::fromStdU16String(NativeOf(present).u16string()));
  if (info.exists()) present.time = info.lastModified();
  present.size =
      present.edited ? static_cast<qint64>(KeepableOfUtf8(*present.edited).bytes.size()) : info.size();
  return present;
}

// The line that says what a part is about.
std::string_view HeadOfPart(std::string_view text) {
  for (const std::string_view line : LinesOf(text)) {
    const std::string_view words = TrimSpaces(line);
    if (!words.empty() && !words.starts_with(';')) return words;
  }
  return {};
}

}  // namespace

std::vector<FileVersion> VersionsOf(const KeptVersions::File& file, std::optional<std::string> edited,
                                    bool unsaved) {
  std::vector<FileVersion> versions;
  if (!file.path.isEmpty()) versions.push_back(PresentOf(file.path, std::move(edited), unsaved));
  for (const KeptVersion& kept : KeptVersions::versionsIn(file.folder)) {
    versions.push_back(
        {.path = file.path, .kept = kept, .time = kept.time, .size = QFileInfo(kept.file).size()});
  }
  return versions;
}

std::optional<std::string> ReadUtf8(const FileVersion& version) {
  if (version.edited) return version.edited;
  const auto bytes = ReadBytes(version);
  if (!bytes || (version.kept && version.kept->utf8)) return bytes;
  return Utf8OfFile(*bytes).toStdString();
}

std::optional<std::string> ReadBytes(const FileVersion& version) {
  if (version.edited) return KeepableOfUtf8(*version.edited).bytes;
  if (!version.kept && !version.time.isValid()) return std::string();
  FileBytes file;
  if (!file.readNative(NativeOf(version))) return std::nullopt;
  return std::string(file.bytes());
}

bool IsPart(const FileVersion& version) {
  return version.kept && version.kept->part;
}

QString VersionOfPart(const QString& folder, std::string_view part) {
  const std::string_view head = HeadOfPart(part);
  if (head.empty()) return {};
  for (const KeptVersion& kept : KeptVersions::versionsIn(folder)) {
    const auto text = kept.part ? ReadUtf8({.kept = kept}) : std::nullopt;
    if (text && HeadOfPart(*text) == head) return kept.file;
  }
  return {};
}

QString KindText(const FileVersion& version) {
  if (!version.kept) {
    if (version.unsaved) return "Present text, not saved";
    return version.time.isValid() || version.edited ? "Present text" : "No longer there";
  }
  const char* text = version.kept->kind == KeptVersion::Kind::replaced        ? "Replaced by a save"
                     : version.kept->kind == KeptVersion::Kind::closedUnsaved ? "Closed without saving"
                                                                              : "Lost in a crash";
  return version.kept->part ? QString(text) + ", a part" : QString(text);
}

QString TimeText(const FileVersion& version) {
  return version.time.isValid() ? English(version.time, "d MMM yyyy HH:mm:ss") : QString();
}

QString TitleOf(const FileVersion& version) {
  const QString kind = KindText(version);
  if (!version.kept) return kind;
  return TimeText(version) + ", " + kind.at(0).toLower() + kind.mid(1);
}

QString ShortTimeText(const QDateTime& time) {
  return English(time, "d MMM HH:mm");
}

QString SizeText(qint64 bytes) {
  return QLocale(QLocale::English).formattedDataSize(bytes, 1, QLocale::DataSizeTraditionalFormat);
}

}  // namespace korvane
