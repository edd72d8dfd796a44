// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFrame>
#include <QLineEdit>
#include <QPointer>

#include <functional>

#include "search/SearchRows.h"

class QListView;

namespace korvane {

class Commands;
class SearchModel;

// The field "Find anything" and the list below it. Either with a field that stands in a window all the time,
// or with one of its own, which comes and goes with the list. The list is a part of the window, laid over the
// rest.
class FindAnything : public QFrame {
  Q_OBJECT

 public:
  // What a window offers and does.
  struct Desk {
    SearchRows& rows;
    PlaceLauncher& places;
    const Commands& commands;
    std::function<void(int line)> goToLine;  // of the open file; none: the window has no such file
  };

  // `field`: the window's, or nothing for one of its own.
  FindAnything(QWidget& window, Desk desk, QLineEdit* field = nullptr);

  // Puts the keyboard into the field and shows the list.
  void open();

  // A field as a window's menu bar has it.
  static QLineEdit* makeField();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void refresh();
  void showList();
  void close();
  bool keyPressed(int key, Qt::KeyboardModifiers modifiers);
  void moveBy(int rows);
  void take(const QModelIndex& index, bool inEditor);
  void carryOut(const SearchRow& row, QAction* command, bool inEditor);

  QWidget& window_;
  Desk desk_;
  QLineEdit* field_;
  bool ownField_;
  QListView* list_;
  SearchModel* model_;
  QPointer<QWidget> before_;  // where the keyboard was
};

}  // namespace korvane
