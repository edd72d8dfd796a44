// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace korvane {

class SettingsPlace;
struct SettingsEdit;

// The per-user store of text values, addressed by section and key. On Windows it is the registry, elsewhere
// an INI file below the user's configuration folder, organisation "Ferncastle Software". A save is on the
// disk when it returns; two copies of the program can use one store. What cannot be stored holds for this
// run, and is tried again with every later change.
class SettingsStore : public QObject {
  Q_OBJECT

 public:
  // While it lives the changes are collected; then they are stored all at once.
  class Batch {
   public:
    explicit Batch(SettingsStore& store);
    ~Batch();
    Batch(const Batch&) = delete;
    Batch& operator=(const Batch&) = delete;

   private:
    SettingsStore& store_;
  };

  // The user's own store.
  SettingsStore();
  // A store of INI files in a folder (native path), apart from the user's.
  explicit SettingsStore(const QString& folder);
  ~SettingsStore() override;

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

  // Why the settings cannot be read, or were last not stored; empty when all is well.
  QString trouble() const { return trouble_; }
  // Where the settings are stored, to be shown: a native path, or a key of the registry.
  QString placeName() const;

 Q_SIGNALS:
  void troubleChanged(const QString& trouble);

 private:
  // The settings of an application, as they are now.
  using PlaceOf = std::function<std::unique_ptr<SettingsPlace>(const QString& application)>;
  explicit SettingsStore(PlaceOf placeOf);
  void edit(const SettingsEdit& edit);
  void storeEdits();
  void setTrouble(const char* what, const QString& reason);

  PlaceOf placeOf_;
  std::unique_ptr<SettingsPlace> app_;
  std::vector<SettingsEdit> edits_;  // not stored yet
  int batches_ = 0;
  QString trouble_;
};

// Any number other than 0 and the word True are true, 0 and False are false, anything else is no flag.
std::optional<bool> FlagOf(const QString& text);
// The word of a flag, True or False.
QString TextOfFlag(bool flag);

}  // namespace korvane
