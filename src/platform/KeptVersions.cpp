// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/KeptVersions.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QLockFile>
#include <QStandardPaths>
#include <QUuid>

#include "files/FileBytes.h"
#include "files/NativePath.h"
#include "files/WholeFile.h"
#include "platform/FileWriter.h"

namespace korvane {

namespace {

constexpr qsizetype kKept = 10;
constexpr int kMostNames = 1000;  // versions of one file in one millisecond
constexpr qsizetype kHashDigits = 8;
constexpr int kLongestSave = 3000;  // milliseconds
const QString kJournalEnding = QStringLiteral(".journal");
const QString kLockEnding = QStringLiteral(".lock");
const QString kUnsaved = QStringLiteral("unsaved ");
const QString kUnsavedPart = QStringLiteral("unsaved part of ");

QString UsersFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
         QStringLiteral("/Ferncastle Software/Korvane/versions");
}

QString FileName(const QString& path) {
  return path.mid(qMax(path.lastIndexOf('\\'), path.lastIndexOf('/')) + 1);
}

// Oldest last. The name tells the time; the file system's time is that of the text, not of the keeping.
QStringList VersionsIn(const QString& folder) {
  return QDir(folder).entryList(QDir::Files, QDir::Name | QDir::Reversed);
}

bool IsNewest(const QString& folder, std::string_view bytes) {
  const QStringList versions = VersionsIn(folder);
  if (versions.isEmpty()) return false;
  const QString newest = folder + '/' + versions.first();
  FileBytes file;
  return QFileInfo(newest).size() == static_cast<qint64>(bytes.size()) &&
         file.read(newest.toStdString(), {}) && file.bytes() == bytes;
}

void Prune(const QString& folder) {
  const QStringList versions = VersionsIn(folder);
  for (qsizetype i = kKept; i < versions.size(); ++i) QFile::remove(folder + '/' + versions[i]);
}

// A journal is the path, a line end, "part" or nothing, a line end, and the text.
std::string JournalOf(const QString& path, bool part, std::string_view bytes) {
  return (path + '\n' + (part ? "part" : "") + '\n').toStdString().append(bytes);
}

}  // namespace

KeptVersions::KeptVersions(const FileWriter& files) : KeptVersions(files, UsersFolder()) {}

KeptVersions::KeptVersions(const FileWriter& files, QString folder)
    : files_(files), folder_(std::move(folder)) {
  recoverLost();
}

QString KeptVersions::folderOf(const QString& path) const {
  // Files of one name in two game folders are two files; letter case makes no difference in a path.
  const QByteArray hash =
      QCryptographicHash::hash(QString(path).replace('/', '\\').toLower().toUtf8(), QCryptographicHash::Sha1);
  return folder_ + '/' + FileName(path).toLower() + '-' + QString::fromLatin1(hash.toHex().left(kHashDigits));
}

QString KeptVersions::keepReplaced(const QString& path, std::string_view replacement) const {
  FileBytes old;
  if (!old.read(path.toStdString(), {}) || old.bytes() == replacement) return {};
  return keep(path, {}, old.bytes(), [&](const QString& name) {
    return files_.keepAs(path, name).isEmpty() ? QString() : files_.create(name, old.bytes());
  });
}

std::unique_ptr<QLockFile> KeptVersions::lock(const QString& path) const {
  QDir().mkpath(folder_);
  auto lock = std::make_unique<QLockFile>(folderOf(path) + kLockEnding);
  lock->tryLock(kLongestSave);  // a save that does not get it is still better than none
  return lock;
}

QString KeptVersions::keepUnsaved(const QString& path, bool part, std::string_view bytes) const {
  return keep(path, part ? kUnsavedPart : kUnsaved, bytes,
              [&](const QString& name) { return files_.create(name, bytes); });
}

QString KeptVersions::keep(const QString& path, const QString& label, std::string_view bytes,
                           const Write& write) const {
  const QString folder = folderOf(path);
  if (!QDir().mkpath(folder)) return QStringLiteral("The folder %1 cannot be made").arg(folder);
  if (IsNewest(folder, bytes)) return {};  // ten saves of one text would push every other version out
  const QString time = QDateTime::currentDateTime().toString("yyyy-MM-dd HH.mm.ss.zzz");
  QString reason;
  for (int i = 1; i <= kMostNames; ++i) {
    const QString number = i > 1 ? QStringLiteral(".%1").arg(i, 3, 10, QChar('0')) : QString();
    const QString name = folder + '/' + time + number + ' ' + label + FileName(path);
    reason = write(name);
    if (reason.isEmpty() || !QFile::exists(name)) break;
  }
  if (reason.isEmpty()) Prune(folder);
  return reason;
}

QString KeptVersions::journalFolder() const {
  return folder_ + QStringLiteral("/open");
}

void KeptVersions::recoverLost() const {
  const QDir folder(journalFolder());
  for (const QString& name : folder.entryList({'*' + kJournalEnding}, QDir::Files)) {
    QLockFile lock(folder.filePath(name) + kLockEnding);
    lock.setStaleLockTime(0);  // only the end of the program that holds it makes a lock void
    if (lock.tryLock(0)) recover(folder.filePath(name));
  }
}

void KeptVersions::recover(const QString& journal) const {
  FileBytes file;
  if (!file.read(journal.toStdString(), {})) return;
  const std::string_view bytes = file.bytes();
  const std::size_t pathEnd = bytes.find('\n');
  const std::size_t textStart = pathEnd == std::string::npos ? pathEnd : bytes.find('\n', pathEnd + 1);
  if (textStart == std::string::npos) return;
  const QString path = QString::fromUtf8(bytes.data(), static_cast<qsizetype>(pathEnd));
  const bool part = textStart > pathEnd + 1;
  const std::string_view text = bytes.substr(textStart + 1);
  if (keepUnsaved(path, part, text).isEmpty()) QFile::remove(journal);
}

UnsavedJournal::UnsavedJournal(const KeptVersions& versions) : versions_(versions) {}

UnsavedJournal::~UnsavedJournal() = default;

bool UnsavedJournal::begin() {
  if (lock_) return true;
  const QString folder = versions_.journalFolder();
  QDir().mkpath(folder);
  file_ = folder + '/' + QUuid::createUuid().toString(QUuid::WithoutBraces) + kJournalEnding;
  lock_ = std::make_unique<QLockFile>(file_ + kLockEnding);
  lock_->setStaleLockTime(0);
  if (!lock_->tryLock(0)) lock_.reset();
  return lock_ != nullptr;
}

bool UnsavedJournal::note(const QString& path, bool part, std::string_view bytes) {
  if (!begin()) return false;
  WholeFile file(NativePath(file_.toStdString()), {.access = DiskFile::Access::userOnly, .sync = false});
  file.write(JournalOf(path, part, bytes));
  return file.replace().empty();
}

void UnsavedJournal::discard() {
  if (!lock_) return;
  QFile::remove(file_);
  release();
}

void UnsavedJournal::release() {
  lock_.reset();
}

}  // namespace korvane
