// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <memory>
#include <optional>

class QSettings;

namespace korvane {

// The per-user store of text values, addressed by section and key. On Windows it is the registry, elsewhere
// an INI file below the user's configuration folder, organisation "Ferncastle Software". A save is on the
// disk when it returns; two copies of the program can use one store.
class SettingsStore {
 public:
  // The user's own store.
  SettingsStore();
  // A store of INI files in a folder (native path), apart from the user's.
  explicit SettingsStore(const QString& folder);
  ~SettingsStore();

  // The stored text, or nothing when the entry is absent.
  std::optional<QString> find(const QString& section, const QString& key) const;
  QString get(const QString& section, const QString& key, const QString& defaultText) const;
  void save(const QString& section, const QString& key, const QString& value);
  // Nothing happens when there is no such section.
  void deleteSection(const QString& section);

  // An entry of the wizard's own application name, which nothing in the program writes.
  QString getOfWizards(const QString& section, const QString& key, const QString& defaultText) const;

  // Section "Settings": an absent entry reads as "1" unless another default is given.
  QString GetSet(const QString& name, const QString& defaultText = QStringLiteral("1")) const;
  void SaveSet(const QString& name, const QString& value);

  // A list under a section: each item under its number followed by "Name", the count under "ItemNum".
  void SaveList(const QString& section, const QStringList& items);
  QStringList LoadList(const QString& section) const;

  // The game folder, in the program's own path text; its default where none was ever stored.
  QString gameFolder() const;
  bool gameFolderStored() const;
  void saveGameFolder(const QString& folder);
  void forgetGameFolder();

 private:
  std::unique_ptr<QSettings> app_;
  std::unique_ptr<QSettings> wizards_;
};

// Any number other than 0 and the word True are true, 0 and False are false, anything else is no flag.
std::optional<bool> FlagOf(const QString& text);
// The word of a flag, True or False.
QString TextOfFlag(bool flag);

}  // namespace korvane
