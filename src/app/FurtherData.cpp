// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FurtherData.h"

#include "settings/SettingsStore.h"

namespace korvane {

namespace {

// Lists for all game folders: each entry is a game folder and a path, between them what neither can have.
constexpr const char* kFurther = "Further Data";
constexpr const char* kOriginal = "Original Data";
const QString kBetween = QStringLiteral("\t");

bool IsOf(const QString& entry, const QString& gameFolder) {
  return entry.startsWith(gameFolder + kBetween, Qt::CaseInsensitive);
}

QStringList PathsOf(const SettingsStore& settings, const char* section, const QString& gameFolder) {
  QStringList paths;
  for (const QString& entry : settings.LoadList(section)) {
    if (IsOf(entry, gameFolder)) paths += entry.mid(gameFolder.size() + kBetween.size());
  }
  return paths;
}

void SavePaths(SettingsStore& settings, const char* section, const QString& gameFolder,
               const QStringList& paths) {
  QStringList entries = settings.LoadList(section);
  entries.removeIf([&](const QString& entry) { return IsOf(entry, gameFolder); });
  for (const QString& path : paths) entries += gameFolder + kBetween + path;
  if (entries.isEmpty()) return settings.deleteSection(section);
  settings.SaveList(section, entries);
}

}  // namespace

QStringList FurtherDataOf(const SettingsStore& settings, const QString& gameFolder) {
  return PathsOf(settings, kFurther, gameFolder);
}

void SaveFurtherData(SettingsStore& settings, const QString& gameFolder, const QStringList& paths) {
  SavePaths(settings, kFurther, gameFolder, paths);
}

QString OriginalDataOf(const SettingsStore& settings, const QString& gameFolder) {
  return PathsOf(settings, kOriginal, gameFolder).value(0);
}

void SaveOriginalData(SettingsStore& settings, const QString& gameFolder, const QString& path) {
  SavePaths(settings, kOriginal, gameFolder, path.isEmpty() ? QStringList() : QStringList(path));
}

}  // namespace korvane
