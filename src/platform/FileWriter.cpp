// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileWriter.h"

#include <filesystem>
#include <system_error>

#include "files/DiskFile.h"
#include "files/NativePath.h"
#include "files/WholeFile.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

QString ReasonOf(const std::error_code& error) {
  return error ? QString::fromLocal8Bit(error.message().c_str()) : QString();
}

fs::path NativeOf(const QString& path) {
  return NativePath(ProgramPath(path.toStdString()));
}

QString Create(const QString& path, std::string_view bytes, DiskFile::Access access) {
  const fs::path target = NativeOf(path);
  std::error_code error;
  if (fs::symlink_status(target, error).type() != fs::file_type::not_found) {
    return ReasonOf(error ? error : std::make_error_code(std::errc::file_exists));
  }
  WholeFile file(target, {.access = access});
  file.write(bytes);
  return QString::fromLocal8Bit(file.create().c_str());
}

}  // namespace

QString FileWriter::replace(const QString& path, std::string_view bytes, const Keep& keep) const {
  KeepFormer keepFormer;
  if (keep) keepFormer = [&keep](ReplaceWay way) { return keep(way).toLocal8Bit().toStdString(); };
  return QString::fromLocal8Bit(SafeReplace(NativeOf(path), bytes, keepFormer).c_str());
}

QString FileWriter::create(const QString& path, std::string_view bytes) const {
  return Create(path, bytes, DiskFile::Access::usual);
}

QString FileWriter::createPrivate(const QString& path, std::string_view bytes) const {
  return Create(path, bytes, DiskFile::Access::userOnly);
}

QString FileWriter::keepAs(const QString& path, const QString& name) const {
  const fs::path target = BehindLinks(NativeOf(path));
  std::error_code error;
  if (fs::hard_link_count(target, error) != 1) {
    return ReasonOf(std::make_error_code(std::errc::too_many_links));
  }
  if (error = SyncToDisk(target); error) return ReasonOf(error);
  return ReasonOf(GiveSecondName(target, NativeOf(name)));
}

}  // namespace korvane
