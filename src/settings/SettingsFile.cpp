// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingsFile.h"

#include "files/FileBytes.h"
#include "files/FileLock.h"
#include "files/SafeReplace.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::milliseconds kPatience{5000};  // with another program that changes one after the other
constexpr std::uintmax_t kMostBytes = std::uintmax_t{8} << 20;
const QString kTooLarge = QStringLiteral("it is larger than 8 MB");

QString Text(const std::string& reason) {
  return QString::fromLocal8Bit(reason.c_str());
}

void Apply(const SettingsEdits& edits, SettingsText& text) {
  for (const SettingsEdit& edit : edits) {
    if (edit.key.isNull())
      text.remove(edit.section);
    else
      text.set(edit.section, edit.key, edit.value);
  }
}

}  // namespace

SettingsFile::SettingsFile(fs::path path) : path_(std::move(path)) {
  trouble_ = read(text_);
}

std::optional<QString> SettingsFile::find(const QString& section, const QString& key) const {
  return text_.find(section, key);
}

QString SettingsFile::read(SettingsText& text) const {
  std::error_code error;
  const fs::file_status status = fs::status(path_, error);
  if (status.type() == fs::file_type::not_found) return {};
  const std::uintmax_t size = error ? 0 : fs::file_size(path_, error);
  if (error) return Text(error.message());
  if (size > kMostBytes) return kTooLarge;
  FileBytes file;
  if (!file.readNative(path_)) return QStringLiteral("it cannot be read");
  const std::string_view bytes = file.bytes();
  auto read = SettingsText::Read({bytes.data(), static_cast<qsizetype>(bytes.size())});
  if (!read) return QStringLiteral("it is damaged");
  text = std::move(*read);
  return {};
}

QString SettingsFile::replaceWith(const SettingsEdits& edits) {
  std::error_code error;
  fs::create_directories(path_.parent_path(), error);
  if (error) return Text(error.message());
  fs::path lockPath = path_;
  FileLock lock;
  // Who kept the lock for so long once, such as a program that was stopped, is not waited for again.
  lock.take(lockPath += ".lock", lockable_ ? kPatience : std::chrono::milliseconds());
  lockable_ = !lock.isTaken();
  if (!lockable_) return QStringLiteral("another program keeps them locked");
  SettingsText text;
  trouble_ = read(text);
  if (!trouble_.isEmpty()) return trouble_;
  const QByteArray before = text.bytes();
  Apply(edits, text);
  const QByteArray after = text.bytes();
  if (static_cast<std::uintmax_t>(after.size()) > kMostBytes) return kTooLarge;
  std::string reason;
  if (after != before) reason = SafeReplace(path_, {after.data(), static_cast<std::size_t>(after.size())});
  if (reason.empty()) text_ = std::move(text);
  return Text(reason);
}

QString SettingsFile::store(const SettingsEdits& edits) {
  QString reason = replaceWith(edits);
  if (!reason.isEmpty()) Apply(edits, text_);
  return reason;
}

}  // namespace korvane
