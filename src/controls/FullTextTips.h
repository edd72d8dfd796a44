// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <functional>

class QPoint;
class QWidget;

namespace korvane {

// Shows, in a tooltip, the whole of a text that a window has to cut: of fields, lists, labels, buttons, tabs,
// headings, and entries of trees and tables. One object serves all windows of the program. What a widget's
// own tooltip says comes behind it, and last what SetTipAt has given.
class FullTextTips : public QObject {
 public:
  // From now on, for as long as the application lives.
  static void install();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using QObject::QObject;
};

// What the widget's tooltip says of the place, in the widget's coordinates, as plain text; empty: nothing. Of
// a view it is the viewport that is asked.
using TipAt = std::function<QString(const QPoint& at)>;
void SetTipAt(QWidget& widget, const TipAt& tip);

// The text that the widget cuts at the place, in its own coordinates; empty when it cuts none there.
QString CutTextAt(const QWidget& widget, const QPoint& at);

}  // namespace korvane
