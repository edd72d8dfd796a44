// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>
#include <optional>
#include <string_view>
#include <vector>

#include "files/FileLock.h"
#include "files/SafeReplace.h"
#include "platform/UnsavedText.h"
#include "platform/VersionName.h"

namespace korvane {

class FileWriter;

// Former versions of the files that the user edits, so that a wrong save or a lost text can be undone: of
// each file the newest ten that a save replaced and, apart from them, the newest ten texts that were not
// saved. A version of an earlier release stays. Each file has a folder of its own, which holds the versions
// and, in "path.txt", the file's full path (the program's own, UTF-8). Several copies of the program can use
// one store. Only the user can read it. Reasons are the system's; an empty text is success.
class KeptVersions {
 public:
  // Below the user's own data folder. What a crash left behind becomes kept versions.
  explicit KeptVersions(const FileWriter& files);
  // In a folder (native path) apart from the user's.
  KeptVersions(const FileWriter& files, QString folder);

  // Keeps a text that is about to be lost. It was read back from where it is kept when the reason is empty.
  [[nodiscard]] QString keepUnsaved(const UnsavedText& text) const;

  // Hold this from before a file is read until it is replaced: otherwise what another copy of the program
  // saves in between would be lost. May return without the lock after 3 seconds.
  std::unique_ptr<FileLock> lock(const QString& path) const;

  // The folder (native path) that holds the versions of the file at the program's path.
  QString folderOf(const QString& path) const;

  struct File {
    QString path;    // empty where only an earlier release kept versions
    QString name;    // of the file, in small letters
    QString folder;  // native path, as folderOf gives
  };
  std::vector<File> files() const;
  // The newest first.
  static std::vector<KeptVersion> versionsIn(const QString& folder);
  // The characters of a version; nothing when it cannot be read whole.
  static std::optional<QString> read(const KeptVersion& version);

  // How much the versions of all files take.
  struct Extent {
    std::size_t files = 0;
    std::size_t versions = 0;
    qint64 bytes = 0;
  };
  Extent extent() const;
  // The folder (native path) that holds all of them.
  const QString& folder() const { return folder_; }

  // Versions that were kept before the time, but of no file the newest one. Texts that were not saved only
  // when they are asked for.
  std::vector<KeptVersion> olderThan(const QDateTime& time, bool withUnsaved) const;
  // Deletes versions for good. Gives how many are gone.
  static std::size_t forget(const std::vector<KeptVersion>& versions);

  // Texts that a crash left, which this store has made versions at its start.
  struct Recovered {
    QString path;
    KeptVersion version;
  };
  const std::vector<Recovered>& recovered() const { return recovered_; }
  // Files that were written in place when the program ended in the middle: neither old nor new.
  struct Torn {
    QString path;
    QString former;  // the kept version (native path) that it should have replaced
  };
  const std::vector<Torn>& torn() const { return torn_; }

 private:
  friend class FormerVersion;
  friend class UnsavedJournal;

  [[nodiscard]] QString keep(const QString& path, KeptVersion& version, std::string_view bytes) const;
  [[nodiscard]] QString prepare(const QString& path, KeptVersion& version) const;
  QString journalFolder() const;
  void recoverLost();
  void recover(const QString& journal);

  const FileWriter& files_;
  QString folder_;
  std::vector<Recovered> recovered_;
  std::vector<Torn> torn_;
};

// The version of one file that a save is about to replace. Hold the file's lock meanwhile.
class FormerVersion {
 public:
  // `bytes`: all of the file as it is now. They must stay until the end.
  FormerVersion(const KeptVersions& versions, QString path, std::string_view bytes);

  // Keeps it: where another file takes its place by a second name, else as a file of its own, which was read
  // back. Can be called again with another way.
  [[nodiscard]] QString keep(ReplaceWay way);
  // The file is not replaced: its second name goes.
  void undo();
  // The file is replaced: older versions beyond the limit go.
  void settle() const;

  // The kept version (native path).
  const QString& file() const { return version_.file; }

 private:
  QString link();

  const KeptVersions& versions_;
  QString path_;
  std::string_view bytes_;
  KeptVersion version_;
  bool linked_ = false;
};

}  // namespace korvane
