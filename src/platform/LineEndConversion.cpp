// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/LineEndConversion.h"

#include <limits>

#include "files/NativePath.h"
#include "files/StillFile.h"
#include "platform/FileSaving.h"
#include "platform/FileText.h"

namespace korvane {

QString ConvertLineEnds(const QString& path, const FileWriter& writer, const KeptVersions& versions) {
  FileBytes file;
  FileLook look;
  constexpr std::uint64_t kAnySize = std::numeric_limits<std::uint64_t>::max();
  if (ReadStill(NativePath(ProgramPath(path.toStdString())), kAnySize, file, look) != StillRead::done)
    return QStringLiteral("it cannot be read");
  const QByteArray text = Utf8OfFile(file.bytes());
  const std::string_view utf8(text.constData(), static_cast<std::size_t>(text.size()));
  const FileBytesOfText converted = FileOfUtf8(utf8);
  const FileSaved saved =
      SaveFile({.path = path, .bytes = converted.bytes, .utf8 = utf8, .opened = MarkOf(file.bytes())}, writer,
               versions);
  switch (saved.stop) {
    case FileSaved::Stop::none:
      return saved.notKept.isEmpty()
                 ? QString()
                 : "it is converted, but its former version could not be kept: " + saved.notKept;
    case FileSaved::Stop::otherBytes:
      return QStringLiteral("another program is changing it");
    case FileSaved::Stop::formerUnreadable:
      return QStringLiteral("its former version cannot be kept");
    case FileSaved::Stop::failed:
      break;
  }
  return saved.reason;
}

}  // namespace korvane
