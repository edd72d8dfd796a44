// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace korvane {

class SettingsStore;

// The folders and archives that stand behind a game folder, such as the original game's data of a
// modification; the user names them for each game folder. Paths are the program's.
QStringList FurtherDataOf(const SettingsStore& settings, const QString& gameFolder);
void SaveFurtherData(SettingsStore& settings, const QString& gameFolder, const QStringList& paths);

// The folder or archive with which a game folder is compared; empty: the archives in the game folder itself.
QString OriginalDataOf(const SettingsStore& settings, const QString& gameFolder);
void SaveOriginalData(SettingsStore& settings, const QString& gameFolder, const QString& path);

}  // namespace korvane
