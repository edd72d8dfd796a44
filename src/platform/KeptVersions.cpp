// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/KeptVersions.h"

#include <QCryptographicHash>
#include <QDateTime>
#include <QDir>
#include <QStandardPaths>

#include <algorithm>

#include "files/FileBytes.h"
#include "files/NativePath.h"
#include "files/WholeFile.h"
#include "platform/FileWriter.h"
#include "platform/TextEncoding.h"
#include "platform/UnsavedJournal.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

constexpr std::size_t kKept = 10;  // of each of three sorts: replaced, unsaved, of an earlier release
constexpr qsizetype kHashDigits = 8;
constexpr std::chrono::milliseconds kLongestSave(3000);
const QString kPathFile = QStringLiteral("path.txt");

QString UsersFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
         QStringLiteral("/Ferncastle Software/Korvane/versions");
}

QString FileName(const QString& path) {
  return path.mid(qMax(path.lastIndexOf('\\'), path.lastIndexOf('/')) + 1);
}

fs::path Native(const QString& path) {
  return NativePath(ProgramPath(path.toStdString()));
}

bool Holds(const QString& file, std::string_view bytes) {
  FileBytes present;
  std::error_code error;
  return fs::file_size(Native(file), error) == bytes.size() && !error && present.readNative(Native(file)) &&
         present.bytes() == bytes;
}

// A save that was killed leaves the live file under a second name among its versions.
bool IsSameFile(const QString& file, const QString& path) {
  std::error_code error;
  return fs::equivalent(Native(file), Native(path), error) && !error;
}

bool SameSort(const KeptVersion& a, const KeptVersion& b) {
  return (a.number == 0) == (b.number == 0) && a.isUnsaved() == b.isUnsaved();
}

// Ten saves of one text would push every other version out. Gives the newest version of the sort when it is
// that text.
QString AlreadyKept(const QString& folder, const KeptVersion& version, std::string_view bytes) {
  const std::vector<KeptVersion> versions = KeptVersions::versionsIn(folder);
  const auto newest = std::ranges::find_if(versions, [&](const KeptVersion& each) {
    return each.number > 0 && each.isUnsaved() == version.isUnsaved();
  });
  const bool same = newest != versions.end() && newest->part == version.part &&
                    newest->utf8 == version.utf8 && Holds(newest->file, bytes);
  return same ? newest->file : QString();
}

void Prune(const QString& folder, const KeptVersion& kept) {
  std::size_t seen = 0;
  for (const KeptVersion& version : KeptVersions::versionsIn(folder)) {
    if (SameSort(version, kept) && ++seen > kKept) QFile::remove(version.file);
  }
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
  return folder_ + '/' + FittingName(FileName(path).toLower()) + '-' +
         QString::fromLatin1(hash.toHex().left(kHashDigits));
}

std::vector<KeptVersion> KeptVersions::versionsIn(const QString& folder) {
  std::vector<KeptVersion> versions;
  for (const QString& name :
       QDir(folder).entryList(QDir::Files | QDir::Hidden, QDir::Name | QDir::Reversed)) {
    std::optional<KeptVersion> version = VersionOfName(name);
    if (!version || IsPart(name.toStdString())) continue;
    version->file = folder + '/' + name;
    versions.push_back(*version);
  }
  std::ranges::stable_sort(versions, std::ranges::greater(), &KeptVersion::number);
  return versions;
}

std::vector<KeptVersions::File> KeptVersions::files() const {
  std::vector<File> files;
  for (const QString& name : QDir(folder_).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name)) {
    const QString folder = folder_ + '/' + name;
    if (folder == journalFolder()) continue;
    FileBytes path;
    path.readNative(Native(folder + '/' + kPathFile));
    files.push_back({QString::fromUtf8(path.bytes()), name.chopped(kHashDigits + 1), folder});
  }
  return files;
}

KeptVersions::Extent KeptVersions::extent() const {
  Extent extent;
  for (const File& file : files()) {
    const std::vector<KeptVersion> versions = versionsIn(file.folder);
    if (!versions.empty()) ++extent.files;
    extent.versions += versions.size();
    for (const KeptVersion& version : versions) extent.bytes += QFileInfo(version.file).size();
  }
  return extent;
}

std::vector<KeptVersion> KeptVersions::olderThan(const QDateTime& time, bool withUnsaved) const {
  std::vector<KeptVersion> older;
  for (const File& file : files()) {
    const std::vector<KeptVersion> versions = versionsIn(file.folder);
    for (std::size_t i = 1; i < versions.size(); ++i) {  // the first one is the newest
      if (versions[i].time < time && (withUnsaved || !versions[i].isUnsaved())) older.push_back(versions[i]);
    }
  }
  return older;
}

std::size_t KeptVersions::forget(const std::vector<KeptVersion>& versions) {
  return static_cast<std::size_t>(std::ranges::count_if(
      versions, [](const KeptVersion& version) { return QFile::remove(version.file); }));
}

std::optional<QString> KeptVersions::read(const KeptVersion& version) {
  FileBytes file;
  if (!file.readNative(Native(version.file))) return std::nullopt;
  return version.utf8 ? QString::fromUtf8(file.bytes()) : FromBytes(file.bytes());
}

std::unique_ptr<FileLock> KeptVersions::lock(const QString& path) const {
  QDir().mkpath(folder_);
  auto lock = std::make_unique<FileLock>();
  lock->take(Native(folderOf(path) + kLockEnding), kLongestSave);  // a save without it is better than none
  return lock;
}

QString KeptVersions::keepUnsaved(const UnsavedText& text) const {
  const KeepableText keepable = KeepableOfUtf8(text.utf8);
  KeptVersion version{.time = QDateTime::currentDateTimeUtc(),
                      .kind = KeptVersion::Kind::closedUnsaved,
                      .part = text.part,
                      .utf8 = keepable.utf8};
  const auto held = lock(text.path);
  return keep(text.path, version, keepable.bytes);
}

// Makes the folder, says whose it is, and finds the version's number and name.
QString KeptVersions::prepare(const QString& path, KeptVersion& version) const {
  const QString folder = folderOf(path);
  if (!QDir().mkpath(folder)) return QStringLiteral("The folder %1 cannot be made").arg(folder);
  RemoveLeftovers(Native(folder));
  const QString pathFile = folder + '/' + kPathFile;
  if (!QFile::exists(pathFile)) {
    const QString reason = files_.createPrivate(pathFile, path.toStdString());
    if (!reason.isEmpty()) return reason;
  }
  const std::vector<KeptVersion> versions = versionsIn(folder);
  version.number = versions.empty() ? 1 : versions.front().number + 1;
  version.file = folder + '/' + NameOfVersion(version, FileName(path));
  return {};
}

QString KeptVersions::keep(const QString& path, KeptVersion& version, std::string_view bytes) const {
  if (version.file = AlreadyKept(folderOf(path), version, bytes); !version.file.isEmpty()) return {};
  QString reason = prepare(path, version);
  if (reason.isEmpty()) reason = files_.createPrivate(version.file, bytes);
  if (!reason.isEmpty()) return reason;
  if (!Holds(version.file, bytes)) {
    QFile::remove(version.file);
    return QStringLiteral("%1 cannot be read back").arg(version.file);
  }
  if (const std::error_code error = SyncToDisk(Native(folderOf(path)))) {
    return QString::fromLocal8Bit(error.message().c_str());
  }
  Prune(folderOf(path), version);
  return {};
}

QString KeptVersions::journalFolder() const {
  return folder_ + QStringLiteral("/open");
}

void KeptVersions::recoverLost() {
  RemoveLeftovers(Native(journalFolder()));
  const QDir folder(journalFolder());
  for (const QString& name : folder.entryList({'*' + kJournalEnding}, QDir::Files)) {
    FileLock lock;
    if (lock.take(Native(folder.filePath(name) + kLockEnding))) recover(folder.filePath(name));
  }
  // Of a program that was killed before it noted anything.
  for (const QString& name : folder.entryList({'*' + kJournalEnding + kLockEnding}, QDir::Files)) {
    if (!folder.exists(name.chopped(kLockEnding.size()))) FileLock().take(Native(folder.filePath(name)));
  }
}

void KeptVersions::recover(const QString& journal) {
  FileBytes file;
  if (!file.readNative(Native(journal))) return;
  const std::optional<ReadJournal> lost = TextOfJournal(file.bytes());
  if (!lost) return;
  const bool saved = !lost->former.isEmpty() && Holds(lost->path, lost->text.bytes);
  const QDateTime noted = QFileInfo(journal).lastModified().toUTC();
  KeptVersion version{.time = noted.isValid() ? noted : QDateTime::currentDateTimeUtc(),
                      .kind = KeptVersion::Kind::lostInCrash,
                      .part = lost->part,
                      .utf8 = lost->text.utf8};
  if (!saved) {
    const auto held = lock(lost->path);
    if (!keep(lost->path, version, lost->text.bytes).isEmpty()) return;
    recovered_.push_back({lost->path, version});
  }
  FileBytes former;
  const bool begun = !lost->former.isEmpty() && former.readNative(Native(lost->former));
  if (!saved && begun && !Holds(lost->path, former.bytes())) torn_.push_back({lost->path, lost->former});
  QFile::remove(journal);
}

FormerVersion::FormerVersion(const KeptVersions& versions, QString path, std::string_view bytes)
    : versions_(versions), path_(std::move(path)), bytes_(bytes) {
  for (const KeptVersion& version : KeptVersions::versionsIn(versions_.folderOf(path_))) {
    if (IsSameFile(version.file, path_)) QFile::remove(version.file);
  }
}

QString FormerVersion::keep(ReplaceWay way) {
  undo();
  version_ = {.time = QDateTime::currentDateTimeUtc(), .kind = KeptVersion::Kind::replaced};
  const bool kept = !AlreadyKept(versions_.folderOf(path_), version_, bytes_).isEmpty();
  if (way == ReplaceWay::renamed && !kept && link().isEmpty()) return {};
  return versions_.keep(path_, version_, bytes_);
}

QString FormerVersion::link() {
  QString reason = versions_.prepare(path_, version_);
  if (reason.isEmpty()) reason = versions_.files_.keepAs(path_, version_.file);
  linked_ = reason.isEmpty();
  if (!linked_) return reason;
  const std::error_code error = SyncToDisk(Native(versions_.folderOf(path_)));
  if (error) undo();
  return error ? QString::fromLocal8Bit(error.message().c_str()) : QString();
}

void FormerVersion::undo() {
  if (linked_) QFile::remove(version_.file);
  linked_ = false;
}

void FormerVersion::settle() const {
  if (linked_) Prune(versions_.folderOf(path_), version_);
}

}  // namespace korvane
