// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/RecentFiles.h"

#include <QMenu>

#include "settings/SettingsStore.h"

namespace korvane {

namespace {

constexpr qsizetype kMost = 10;
const QString kSection = QStringLiteral("Recent Files");

// The first nine have a digit to be chosen by, the tenth has 0.
QString Caption(qsizetype index, const QString& file) {
  return QStringLiteral("&%1 %2").arg(QString::number((index + 1) % kMost), QString(file).replace('&', "&&"));
}

}  // namespace

RecentFiles::RecentFiles(QMenu& menu, SettingsStore& settings)
    : QObject(&menu), menu_(menu), settings_(settings) {
  connect(&menu_, &QMenu::aboutToShow, this, &RecentFiles::fill);
  fill();
}

void RecentFiles::add(const QString& file) {
  const QStringList before = settings_.LoadList(kSection);
  QStringList files{file};
  for (const QString& other : before) {
    if (other.compare(file, Qt::CaseInsensitive) != 0 && files.size() < kMost) files += other;
  }
  if (files == before) return;
  const SettingsStore::Batch batch(settings_);
  settings_.deleteSection(kSection);
  settings_.SaveList(kSection, files);
}

// Another copy of the program may have added to the list.
void RecentFiles::fill() {
  menu_.clear();
  const QStringList files =
      settings_.LoadList(kSection).first(std::min(settings_.LoadList(kSection).size(), kMost));
  for (qsizetype i = 0; i < files.size(); ++i) {
    QAction* action = menu_.addAction(Caption(i, files[i]));
    connect(action, &QAction::triggered, this, [this, file = files[i]] { Q_EMIT chosen(file); });
  }
  if (files.isEmpty()) menu_.addAction("None yet")->setEnabled(false);
}

}  // namespace korvane
