// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>

#include <vector>

class QLineEdit;
class QListWidget;

namespace korvane {

// A field with a list below it: what is typed narrows the list, a number is a line. Enter goes there, Escape
// closes it.
class JumpPopup : public QFrame {
  Q_OBJECT

 public:
  struct Item {
    QString text;
    int line = 0;  // from 1
  };

  explicit JumpPopup(QWidget* owner);

  // Shows itself at the top of its owner. `current`: the item that is chosen first, -1 for none.
  void ask(const QString& what, std::vector<Item> items, int current = -1);

 Q_SIGNALS:
  void chosen(int line);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void narrow();
  void take();
  void place();

  QLineEdit* field_;
  QListWidget* list_;
  std::vector<Item> items_;
};

}  // namespace korvane
