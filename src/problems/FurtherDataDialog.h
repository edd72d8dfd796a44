// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QStringList>

class QFileDialog;
class QListWidget;
class QPushButton;

namespace korvane {

class MessageBoxes;

// Asks which folders and archives stand behind the game folder. Paths are the program's.
class FurtherDataDialog : public QDialog {
  Q_OBJECT

 public:
  FurtherDataDialog(const QStringList& paths, MessageBoxes& messages, QWidget* parent);

  QStringList paths() const;
  // Nothing, after a message, for what has no INI files.
  void add(const QString& path);

 private:
  void addFolder();
  void addArchives();
  // Adds what the user chooses there.
  void choose(QFileDialog& dialog);
  void remove();

  MessageBoxes& messages_;
  QListWidget* list_;
  QPushButton* remove_;
};

}  // namespace korvane
