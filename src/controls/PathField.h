// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QStringListModel>

namespace korvane {

// A line to type the path of a folder into, with the folders that could follow offered below it. Paths may be
// those of this machine, begin with "~", or be the program's own ("C:\Games").
class PathField : public QLineEdit {
  Q_OBJECT

 public:
  explicit PathField(QWidget* parent);

  // Shows the field with this text.
  void open(const QString& text);

 Q_SIGNALS:
  // The path on this machine of a folder that exists.
  void folderEntered(const QString& native);
  // Closed, whether a folder was entered or not.
  void left();

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  void enter();
  void leave();
  void offer();

  QStringListModel offers_;
  QString offered_;  // the folder whose folders are offered
};

}  // namespace korvane
