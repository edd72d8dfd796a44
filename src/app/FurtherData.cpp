// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/FurtherData.h"

#include "settings/SettingsStore.h"

namespace korvane {

namespace {

// One list for all game folders: each entry is a game folder and a path, between them what neither can have.
constexpr const char* kSection = "Further Data";
const QString kBetween = QStringLiteral("\t");

bool IsOf(const QString& entry, const QString& gameFolder) {
  return entry.startsWith(gameFolder + kBetween, Qt::CaseInsensitive);
}

}  // namespace

QStringList FurtherDataOf(const SettingsStore& settings, const QString& gameFolder) {
  QStringList paths;
  for (const QString& entry : settings.LoadList(kSection)) {
    if (IsOf(entry, gameFolder)) paths += entry.mid(gameFolder.size() + kBetween.size());
  }
  return paths;
}

void SaveFurtherData(SettingsStore& settings, const QString& gameFolder, const QStringList& paths) {
  QStringList entries = settings.LoadList(kSection);
  entries.removeIf([&](const QString& entry) { return IsOf(entry, gameFolder); });
  for (const QString& path : paths) entries += gameFolder + kBetween + path;
  settings.SaveList(kSection, entries);
}

}  // namespace korvane
