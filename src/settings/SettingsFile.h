// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <filesystem>
#include <optional>
#include <vector>

#include "settings/SettingsText.h"

namespace korvane {

// One entry that gets a value, or a whole section that goes (then `key` is null).
struct SettingsEdit {
  QString section;
  QString key;
  QString value;
};
using SettingsEdits = std::vector<SettingsEdit>;

// The settings of one application. What cannot be stored holds for as long as this lives.
class SettingsPlace {
 public:
  virtual ~SettingsPlace() = default;
  virtual std::optional<QString> find(const QString& section, const QString& key) const = 0;
  // Stores the edits, all or none. Gives the reason when they are not stored.
  [[nodiscard]] virtual QString store(const SettingsEdits& edits) = 0;
  // Why what is stored cannot be read, if so.
  virtual QString trouble() const = 0;
  virtual QString name() const = 0;
};

// Settings in a file (see SettingsText). A change takes the file's lock, reads the file again and replaces it
// whole, so that it is the old one or the new one whatever happens, and other programs' entries stay. A file
// that cannot be read, is none of settings or is larger than 8 MB is never replaced.
class SettingsFile : public SettingsPlace {
 public:
  // Native path. The file and its folder need not exist.
  explicit SettingsFile(std::filesystem::path path);

  std::optional<QString> find(const QString& section, const QString& key) const override;
  QString store(const SettingsEdits& edits) override;
  QString trouble() const override { return trouble_; }
  QString name() const override { return QString::fromStdU16String(path_.u16string()); }

 private:
  QString read(SettingsText& text) const;
  QString replaceWith(const SettingsEdits& edits);

  std::filesystem::path path_;
  SettingsText text_;
  QString trouble_;
  bool lockable_ = true;
};

}  // namespace korvane
