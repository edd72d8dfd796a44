// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/FileSaving.h"

#include <functional>
#include <memory>

#include "files/FileBytes.h"
#include "files/NativePath.h"
#include "platform/FileWriter.h"
#include "platform/KeptVersions.h"
#include "platform/UnsavedJournal.h"

namespace korvane {

namespace {

// Keeps the former version of a file in the way that its replacing asks for, and says what came of it.
class Keeper {
 public:
  Keeper(const FileToSave& file, const KeptVersions& versions, std::string_view former)
      : file_(file), same_(former == file.bytes), former_(versions, file.path, former), mark_(versions) {}

  QString keep(ReplaceWay way) {
    if (same_ && way == ReplaceWay::renamed) return {};
    notKept_ = former_.keep(way);
    if (way == ReplaceWay::renamed) return {};  // the save goes on, and the user is told
    if (!notKept_.isEmpty()) return notKept_;
    inPlace_ = true;
    // From here on the end of the program would leave the file neither old nor new.
    return mark_.note({file_.path, false, std::string(file_.utf8), former_.file()});
  }

  void end(FileSaved& saved) {
    mark_.discard();
    saved.notKept = notKept_;
    if (saved.reason.isEmpty()) return former_.settle();
    former_.undo();
    if (inPlace_) saved.reason += QStringLiteral("\r\nIts former version is kept: ") + former_.file();
  }

 private:
  const FileToSave& file_;
  bool same_;
  FormerVersion former_;
  UnsavedJournal mark_;
  bool inPlace_ = false;
  QString notKept_;
};

FileSaved Replace(const FileToSave& file, const FileWriter& writer, const KeptVersions& versions,
                  std::string_view former) {
  Keeper keeper(file, versions, former);
  FileSaved saved;
  saved.reason = writer.replace(file.path, file.bytes, [&](ReplaceWay way) { return keeper.keep(way); });
  keeper.end(saved);
  return saved;
}

// Nothing is kept of a file that is not there or cannot be read, so it is not written over in place.
FileSaved ReplaceUnkept(const FileToSave& file, const FileWriter& writer) {
  return {.reason = writer.replace(file.path, file.bytes)};
}

}  // namespace

BytesMark MarkOf(std::string_view bytes) {
  return {bytes.size(), std::hash<std::string_view>()(bytes)};
}

FileSaved SaveFile(const FileToSave& file, const FileWriter& writer, const KeptVersions& versions) {
  const std::unique_ptr<FileLock> lock = versions.lock(file.path);
  const ProgramPath path(file.path.toStdString());
  FileBytes former;
  const bool read = former.read(path, {});
  if (!read && FileExists(path) && !file.formerMayGo) {
    return {.stop = FileSaved::Stop::formerUnreadable};
  }
  const bool expected =
      !read || !file.opened || former.bytes() == file.bytes || MarkOf(former.bytes()) == *file.opened;
  if (!expected) return {.stop = FileSaved::Stop::otherBytes, .seen = MarkOf(former.bytes())};
  FileSaved saved = read ? Replace(file, writer, versions, former.bytes()) : ReplaceUnkept(file, writer);
  if (!saved.reason.isEmpty()) saved.stop = FileSaved::Stop::failed;
  return saved;
}

}  // namespace korvane
