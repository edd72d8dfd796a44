// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPoint>

class QAbstractItemView;

namespace korvane {

// Tells when a view's context menu is asked for, with the mouse or with the menu key.
class MenuButton : public QObject {
  Q_OBJECT

 public:
  explicit MenuButton(QAbstractItemView& view);

 Q_SIGNALS:
  // At once: the right button, or left and right together, went down over the view, or the menu key.
  void pressed(const QPoint& globalPosition);
  // For an entry, once the view has selected it and has done what follows from that.
  void asked(const QPoint& globalPosition);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void askAtCurrent();

  QAbstractItemView& view_;
};

}  // namespace korvane
