// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>
#include <memory>
#include <string_view>

class QLockFile;

namespace korvane {

class FileWriter;

// Former versions of the files that the user edits, so that a wrong save or a lost text can be undone: the
// newest ten of each file. Each file has a folder of its own, versions are named by time. Several copies of
// the program can use one store.
class KeptVersions {
 public:
  // Below the user's own data folder. What a crash left behind becomes kept versions.
  explicit KeptVersions(const FileWriter& files);
  // In a folder (native path) apart from the user's.
  KeptVersions(const FileWriter& files, QString folder);

  // Keeps the file as it lies on the disk now, whoever wrote it, when `replacement` is about to replace it by
  // something else. Gives the system's reason when it cannot be kept, else an empty text.
  [[nodiscard]] QString keepReplaced(const QString& path, std::string_view replacement) const;
  // Keeps a text that is about to be lost; gives the same as keepReplaced. `part`: it is only a part of that
  // file.
  [[nodiscard]] QString keepUnsaved(const QString& path, bool part, std::string_view bytes) const;

  // Hold this from before keepReplaced until the file is replaced: otherwise what another copy of the program
  // saves in between would be lost. May return without the lock after 3 seconds.
  std::unique_ptr<QLockFile> lock(const QString& path) const;

  // The folder (native path) that holds the versions of the file at the program's path.
  QString folderOf(const QString& path) const;

 private:
  friend class UnsavedJournal;

  // `write` puts the version at the (native) path that it is given and says why it cannot, see FileWriter.
  using Write = std::function<QString(const QString&)>;
  QString keep(const QString& path, const QString& label, std::string_view bytes, const Write& write) const;
  QString journalFolder() const;
  void recoverLost() const;
  void recover(const QString& journal) const;

  const FileWriter& files_;
  QString folder_;
};

// The unsaved text of one window, on the disk for the case that the program ends without a chance to keep it.
// The next KeptVersions on the same folder turns it into a kept version.
class UnsavedJournal {
 public:
  explicit UnsavedJournal(const KeptVersions& versions);
  ~UnsavedJournal();
  UnsavedJournal(const UnsavedJournal&) = delete;
  UnsavedJournal& operator=(const UnsavedJournal&) = delete;

  // Replaces what was noted before. False when it is not on the disk; what was noted before then still is.
  bool note(const QString& path, bool part, std::string_view bytes);
  // The text is saved or kept.
  void discard();
  // Leaves what is noted to the next start of the program, as the end of the journal does.
  void release();

 private:
  bool begin();

  const KeptVersions& versions_;
  QString file_;
  std::unique_ptr<QLockFile> lock_;  // held while the window lives, so that no other copy takes the text
};

}  // namespace korvane
