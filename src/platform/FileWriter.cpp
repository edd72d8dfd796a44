// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileWriter.h"

#include <QSaveFile>

#include "files/NativePath.h"

namespace korvane {

QString FileWriter::replace(const QString& path, std::string_view bytes) const {
  const std::filesystem::path native = NativePath(path.toStdString());
  QSaveFile file(QString::fromStdU16String(native.u16string()));
  if (!file.open(QIODevice::WriteOnly)) return file.errorString();
  const auto size = static_cast<qint64>(bytes.size());
  // On a full disk commit() alone can report success for a truncated file.
  if (file.write(bytes.data(), size) != size || !file.flush()) {
    const QString reason = file.errorString();
    file.cancelWriting();
    file.commit();
    return reason;
  }
  return file.commit() ? QString() : file.errorString();
}

}  // namespace korvane
