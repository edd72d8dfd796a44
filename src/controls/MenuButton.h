// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPoint>

class QAbstractItemView;

namespace korvane {

// Tells when a view's context menu is asked for: the right button, or left and right together, goes down over
// it, or the menu key is pressed in it.
class MenuButton : public QObject {
  Q_OBJECT

 public:
  explicit MenuButton(QAbstractItemView& view);

 Q_SIGNALS:
  void pressed(const QPoint& globalPosition);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QAbstractItemView& view_;
};

}  // namespace korvane
