// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/GameLibraries.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>

#include <array>

#include "controls/Icons.h"

namespace korvane {

namespace {

struct Library {
  const char* name;
  const char* folder;  // below the home folder
};

constexpr std::array kSteamFolders = {".local/share/Steam", ".steam/steam",
                                      ".var/app/com.valvesoftware.Steam/.local/share/Steam"};
constexpr std::array kOfSteam = {Library{"Steam games", "steamapps/common"},
                                 Library{"Proton", "steamapps/compatdata"}};
constexpr std::array kOthers = {
    Library{"Wine", ".wine/drive_c"},
    Library{"Wine prefixes", ".local/share/wineprefixes"},
    Library{"Lutris", "Games"},
    Library{"Lutris", ".local/share/lutris"},
    Library{"Lutris, Flatpak", ".var/app/net.lutris.Lutris/data/lutris"},
    Library{"Bottles", ".local/share/bottles/bottles"},
    Library{"Bottles, Flatpak", ".var/app/com.usebottles.bottles/data/bottles/bottles"},
    Library{"Flatpak", ".var/app"},
};
constexpr qint64 kLongestList = 1'000'000;  // bytes

// Steam's own folder and those on other disks that its list names.
QStringList SteamFolders(const QDir& steam) {
  QStringList folders = {steam.path()};
  QFile list(steam.filePath("steamapps/libraryfolders.vdf"));
  if (!list.open(QIODevice::ReadOnly)) return folders;
  static const QRegularExpression entry("\"path\"\\s+\"([^\"]+)\"");
  const QString text = QString::fromUtf8(list.read(kLongestList));
  for (auto found = entry.globalMatch(text); found.hasNext();) folders += found.next().captured(1);
  return folders;
}

class Places {
 public:
  explicit Places(const QList<FolderPlace>& known) {
    for (const FolderPlace& place : known) seen_ += QFileInfo(place.native).canonicalFilePath();
  }

  void add(const char* name, const QString& folder) {
    const QString real = QFileInfo(folder).canonicalFilePath();
    if (real.isEmpty() || seen_.contains(real) || !QFileInfo(real).isDir()) return;
    seen_ += real;
    places_ += {QString("%1 (%2)").arg(QString(name), folder), QString(folder).replace('/', '\\'), folder,
                ThemeIcon("drive")};
  }

  const QList<FolderPlace>& places() const { return places_; }

 private:
  QSet<QString> seen_;  // what two links lead to is one place
  QList<FolderPlace> places_;
};

}  // namespace

QList<FolderPlace> GameLibraries(const QList<FolderPlace>& known) {
  Places places(known);
  const QDir home = QDir::home();
  for (const char* steam : kSteamFolders) {
    for (const QString& folder : SteamFolders(home.filePath(steam))) {
      for (const Library& library : kOfSteam) places.add(library.name, QDir(folder).filePath(library.folder));
    }
  }
  for (const Library& library : kOthers) places.add(library.name, home.filePath(library.folder));
  return places.places();
}

}  // namespace korvane
