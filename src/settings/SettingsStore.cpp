// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingsStore.h"

#include <QSettings>

#include <algorithm>

namespace korvane {

namespace {

const QString kOrganisation = QStringLiteral("Ferncastle Software");
const QString kAppName = QStringLiteral("Command And Conquer Generals Korvane");
const QString kWizards = QStringLiteral("Wizards");
const QString kSettings = QStringLiteral("Settings");
const QString kPaths = QStringLiteral("Paths");
const QString kGameFolder = QStringLiteral("CCPath");
const QString kItemCount = QStringLiteral("ItemNum");
const QString kDefaultGameFolder =
    QStringLiteral("C:\\Program Files\\EA Games\\Command and Conquer Generals");
constexpr int kMostItems = 10000;  // a list longer than this is a damaged entry, not a history

QString EntryName(const QString& section, const QString& key) {
  return section + '/' + key;
}

std::unique_ptr<QSettings> UsersOwn(const QString& application) {
#ifdef Q_OS_WIN
  return std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope, kOrganisation,
                                     application);
#else
  return std::make_unique<QSettings>(QSettings::IniFormat, QSettings::UserScope, kOrganisation, application);
#endif
}

std::unique_ptr<QSettings> InFolder(const QString& folder, const QString& application) {
  return std::make_unique<QSettings>(folder + '/' + application + ".ini", QSettings::IniFormat);
}

// A text with commas that was written by hand, without quotes, arrives as a list.
QString TextOf(const QVariant& value) {
  return value.typeId() == QMetaType::QStringList ? value.toStringList().join(", ") : value.toString();
}

std::optional<QString> Find(const QSettings& settings, const QString& section, const QString& key) {
  const QVariant value = settings.value(EntryName(section, key));
  if (!value.isValid()) return std::nullopt;
  return TextOf(value);
}

}  // namespace

SettingsStore::SettingsStore() : app_(UsersOwn(kAppName)), wizards_(UsersOwn(kWizards)) {
  app_->setFallbacksEnabled(false);
}

SettingsStore::SettingsStore(const QString& folder)
    : app_(InFolder(folder, kAppName)), wizards_(InFolder(folder, kWizards)) {}

SettingsStore::~SettingsStore() = default;

std::optional<QString> SettingsStore::find(const QString& section, const QString& key) const {
  return Find(*app_, section, key);
}

QString SettingsStore::get(const QString& section, const QString& key, const QString& defaultText) const {
  return find(section, key).value_or(defaultText);
}

void SettingsStore::save(const QString& section, const QString& key, const QString& value) {
  app_->setValue(EntryName(section, key), value);
  app_->sync();
}

void SettingsStore::deleteSection(const QString& section) {
  app_->remove(section);
  app_->sync();
}

QString SettingsStore::getOfWizards(const QString& section, const QString& key,
                                    const QString& defaultText) const {
  return Find(*wizards_, section, key).value_or(defaultText);
}

QString SettingsStore::GetSet(const QString& name, const QString& defaultText) const {
  return get(kSettings, name, defaultText);
}

void SettingsStore::SaveSet(const QString& name, const QString& value) {
  save(kSettings, name, value);
}

void SettingsStore::SaveList(const QString& section, const QStringList& items) {
  for (qsizetype i = 0; i < items.size(); ++i) {
    app_->setValue(EntryName(section, QString::number(i) + "Name"), items[i]);
    app_->setValue(EntryName(section, kItemCount), QString::number(items.size()));
  }
  app_->sync();
}

QStringList SettingsStore::LoadList(const QString& section) const {
  const int count = std::min(get(section, kItemCount, "-1").toInt(), kMostItems);
  QStringList items;
  for (int i = 0; i < count; ++i) items += get(section, QString::number(i) + "Name", {});
  return items;
}

QString SettingsStore::gameFolder() const {
  return get(kPaths, kGameFolder, kDefaultGameFolder);
}

bool SettingsStore::gameFolderStored() const {
  return get(kPaths, kGameFolder, "-1") != "-1";
}

void SettingsStore::saveGameFolder(const QString& folder) {
  save(kPaths, kGameFolder, folder);
}

void SettingsStore::forgetGameFolder() {
  deleteSection(kPaths);
}

std::optional<bool> FlagOf(const QString& text) {
  if (text.compare("True", Qt::CaseInsensitive) == 0) return true;
  if (text.compare("False", Qt::CaseInsensitive) == 0) return false;
  bool isNumber = false;
  const double number = text.trimmed().toDouble(&isNumber);
  if (!isNumber) return std::nullopt;
  return number != 0;
}

QString TextOfFlag(bool flag) {
  return flag ? QStringLiteral("True") : QStringLiteral("False");
}

}  // namespace korvane
