// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileWriter.h"

#include <QFile>
#include <QSaveFile>
#include <QUuid>

#include <cerrno>
#include <filesystem>
#include <system_error>

#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include "files/NativePath.h"
#include "platform/NativeText.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

constexpr int kMostLinks = 40;  // links that lead further than this lead in a circle

#ifdef _WIN32
constexpr QIODevice::OpenMode kToSync = QIODevice::ReadWrite | QIODevice::ExistingOnly;  // else no flush
#else
constexpr QIODevice::OpenMode kToSync = QIODevice::ReadOnly;
#endif

QString ReasonOf(const std::error_code& error) {
  return error ? QString::fromLocal8Bit(error.message().c_str()) : QString();
}

// The file a path leads to after following symbolic links. The last link of a chain may lead to a file that
// is yet to be made.
fs::path BehindLinks(fs::path path) {
  std::error_code error;
  for (int i = 0; i < kMostLinks && fs::is_symlink(path, error); ++i) {
    path = path.parent_path() / fs::read_symlink(path, error);
  }
  return path;
}

fs::path TargetOf(const QString& path) {
  return BehindLinks(NativePath(path.toStdString()));
}

// A name beside the target that nothing else uses.
fs::path Beside(const fs::path& target) {
  fs::path name = target;
  return name += ('.' + QUuid::createUuid().toString(QUuid::Id128)).toStdString();
}

// Waits until the file's bytes are on the disk. Gives the reason when they do not get there.
QString Sync(const QFileDevice& file) {
#ifdef _WIN32
  const bool done = ::_commit(file.handle()) == 0;
#else
  // Some file systems cannot be asked; a disk that is full or broken can.
  const bool done = ::fdatasync(file.handle()) == 0 || errno == EINVAL || errno == ENOSYS;
#endif
  return done ? QString() : ReasonOf({errno, std::generic_category()});
}

bool WriteAll(QFileDevice& file, std::string_view bytes) {
  const auto size = static_cast<qint64>(bytes.size());
  return file.write(bytes.data(), size) == size && file.flush();
}

// A full disk shows only in the number of bytes taken, in the flush or in the sync: closing a truncated file
// can report success. Gives the reason of a failure.
QString PutOnDisk(QFileDevice& file, std::string_view bytes) {
  return WriteAll(file, bytes) ? Sync(file) : file.errorString();
}

QString Replace(const fs::path& target, std::string_view bytes) {
  QSaveFile file(TextOfNative(target));
  if (!file.open(QIODevice::WriteOnly)) return file.errorString();
  const QString reason = PutOnDisk(file, bytes);
  if (!reason.isEmpty()) return reason;  // without the commit nothing is left of the new file
  return file.commit() ? QString() : file.errorString();
}

// For file systems without hard links. Ended by force in the middle, it leaves a part of the file.
QString CreateInPlace(const fs::path& target, std::string_view bytes) {
  QFile file(TextOfNative(target));
  if (!file.open(QIODevice::WriteOnly | QIODevice::NewOnly)) return file.errorString();
  const QString reason = PutOnDisk(file, bytes);
  if (!reason.isEmpty()) file.remove();
  return reason;
}

// Whether the target could not be linked because this file system has no links at all.
bool CannotLink(const std::error_code& error) {
  return error == std::errc::operation_not_permitted || error == std::errc::operation_not_supported ||
         error == std::errc::function_not_supported || error == std::errc::invalid_argument;
}

}  // namespace

QString FileWriter::replace(const QString& path, std::string_view bytes) const {
  return Replace(TargetOf(path), bytes);
}

QString FileWriter::create(const QString& path, std::string_view bytes) const {
  const fs::path target = NativePath(path.toStdString());
  std::error_code error;
  if (fs::symlink_status(target, error).type() != fs::file_type::not_found) {
    return ReasonOf(error ? error : std::make_error_code(std::errc::file_exists));
  }
  const fs::path beside = Beside(target);
  if (const QString reason = Replace(beside, bytes); !reason.isEmpty()) return reason;
  fs::create_hard_link(beside, target, error);  // unlike a renaming, fails where something has the name
  std::error_code ignored;
  fs::remove(beside, ignored);
  return CannotLink(error) ? CreateInPlace(target, bytes) : ReasonOf(error);
}

QString FileWriter::keepAs(const QString& path, const QString& name) const {
  const fs::path target = TargetOf(path);
  std::error_code error;
  if (fs::hard_link_count(target, error) != 1)
    return ReasonOf(std::make_error_code(std::errc::too_many_links));
  QFile file(TextOfNative(target));
  if (!file.open(kToSync)) return file.errorString();
  if (const QString reason = Sync(file); !reason.isEmpty()) return reason;
  fs::create_hard_link(target, NativePath(name.toStdString()), error);
  return ReasonOf(error);
}

QString FileWriter::note(const QString& path, std::string_view bytes) const {
  const fs::path target = TargetOf(path);
  const fs::path beside = fs::path(target) += ".new";
  QFile file(TextOfNative(beside));
  if (!file.open(QIODevice::WriteOnly) || !WriteAll(file, bytes)) return file.errorString();
  file.close();
  std::error_code error;
  fs::rename(beside, target, error);
  return ReasonOf(error);
}

}  // namespace korvane
