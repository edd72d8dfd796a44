// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

class QMenu;

namespace korvane {

class SettingsStore;

// The menu of the ten files that were opened last, which the settings remember.
class RecentFiles : public QObject {
  Q_OBJECT

 public:
  RecentFiles(QMenu& menu, SettingsStore& settings);

  // The program's path.
  void add(const QString& file);

 Q_SIGNALS:
  void chosen(const QString& file);

 private:
  void fill();

  QMenu& menu_;
  SettingsStore& settings_;
};

}  // namespace korvane
