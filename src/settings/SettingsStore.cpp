// SPDX-License-Identifier: GPL-3.0-or-later
#include "settings/SettingsStore.h"

#include <algorithm>

#include "settings/SettingsFile.h"

#ifdef Q_OS_WIN
#include <QSettings>
#else
#include <QStandardPaths>
#endif

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

#ifdef Q_OS_WIN

// Each entry is stored by itself, and whole.
class RegistryPlace : public SettingsPlace {
 public:
  explicit RegistryPlace(const QString& application)
      : entries_(QSettings::NativeFormat, QSettings::UserScope, kOrganisation, application) {
    entries_.setFallbacksEnabled(false);
  }

  std::optional<QString> find(const QString& section, const QString& key) const override {
    const QVariant value = entries_.value(section + '/' + key);
    return value.isValid() ? std::optional(value.toString()) : std::nullopt;
  }

  QString store(const SettingsEdits& edits) override {
    for (const SettingsEdit& edit : edits) {
      if (edit.key.isNull())
        entries_.remove(edit.section);
      else
        entries_.setValue(edit.section + '/' + edit.key, edit.value);
    }
    entries_.sync();
    return trouble();
  }

  QString trouble() const override {
    return entries_.status() == QSettings::NoError ? QString() : QStringLiteral("the system refuses it");
  }

  QString name() const override { return entries_.fileName(); }

 private:
  QSettings entries_;
};

std::unique_ptr<SettingsPlace> UsersOwn(const QString& application) {
  return std::make_unique<RegistryPlace>(application);
}

#endif

std::unique_ptr<SettingsPlace> InFolder(const QString& folder, const QString& application) {
  const QString path = folder + '/' + application + ".ini";
  return std::make_unique<SettingsFile>(std::filesystem::path(path.toStdU16String()));
}

#ifndef Q_OS_WIN

std::unique_ptr<SettingsPlace> UsersOwn(const QString& application) {
  const QString folder = QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
  return InFolder(folder + '/' + kOrganisation, application);
}

#endif

}  // namespace

SettingsStore::SettingsStore() : SettingsStore(UsersOwn) {}

SettingsStore::SettingsStore(const QString& folder)
    : SettingsStore([folder](const QString& application) { return InFolder(folder, application); }) {}

SettingsStore::SettingsStore(PlaceOf placeOf) : placeOf_(std::move(placeOf)), app_(placeOf_(kAppName)) {
  setTrouble("read", app_->trouble());
}

SettingsStore::~SettingsStore() = default;

SettingsStore::Batch::Batch(SettingsStore& store) : store_(store) {
  ++store_.batches_;
}

SettingsStore::Batch::~Batch() {
  --store_.batches_;
  store_.storeEdits();
}

void SettingsStore::edit(const SettingsEdit& edit) {
  edits_.push_back(edit);
  storeEdits();
}

// What could not be stored is tried again with the next change.
void SettingsStore::storeEdits() {
  if (batches_ > 0 || edits_.empty()) return;
  const QString reason = app_->store(edits_);
  if (reason.isEmpty()) edits_.clear();
  setTrouble("stored", reason);
}

void SettingsStore::setTrouble(const char* what, const QString& reason) {
  const QString text =
      reason.isEmpty() ? QString() : QStringLiteral("The settings could not be %1: %2").arg(what, reason);
  if (text == trouble_) return;
  trouble_ = text;
  Q_EMIT troubleChanged(trouble_);
}

QString SettingsStore::placeName() const {
  return app_->name();
}

std::optional<QString> SettingsStore::find(const QString& section, const QString& key) const {
  return app_->find(section, key);
}

QString SettingsStore::get(const QString& section, const QString& key, const QString& defaultText) const {
  return find(section, key).value_or(defaultText);
}

void SettingsStore::save(const QString& section, const QString& key, const QString& value) {
  edit({section, key, value});
}

void SettingsStore::deleteSection(const QString& section) {
  edit({section, {}, {}});
}

QString SettingsStore::getOfWizards(const QString& section, const QString& key,
                                    const QString& defaultText) const {
  return placeOf_(kWizards)->find(section, key).value_or(defaultText);
}

QString SettingsStore::GetSet(const QString& name, const QString& defaultText) const {
  return get(kSettings, name, defaultText);
}

void SettingsStore::SaveSet(const QString& name, const QString& value) {
  save(kSettings, name, value);
}

void SettingsStore::SaveList(const QString& section, const QStringList& items) {
  const Batch batch(*this);
  for (qsizetype i = 0; i < items.size(); ++i) save(section, QString::number(i) + "Name", items[i]);
  if (!items.isEmpty()) save(section, kItemCount, QString::number(items.size()));
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
