// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/KeyboardOutline.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QEvent>
#include <QPainter>
#include <QPushButton>

namespace korvane {

namespace {

constexpr int kViewWidth = 2;    // pixels of the line
constexpr int kButtonInset = 4;  // pixels from the button's edge, which it colours itself

class Outline : public QWidget {
 public:
  explicit Outline(QWidget* control) : QWidget(control), ofButton_(qobject_cast<QPushButton*>(control)) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setObjectName("keyboardOutline");
  }

 protected:
  void paintEvent(QPaintEvent*) override {
    QPainter painter(this);
    if (ofButton_) {
      painter.setPen(QPen(palette().color(QPalette::ButtonText), 1, Qt::DotLine));
      painter.drawRect(rect().adjusted(kButtonInset, kButtonInset, -kButtonInset - 1, -kButtonInset - 1));
    } else {
      painter.setPen(QPen(palette().color(QPalette::Highlight), kViewWidth));
      painter.drawRect(rect().adjusted(1, 1, -1, -1));
    }
  }

 private:
  bool ofButton_;
};

// A button that Enter presses looks the same with and without the keyboard; where text is typed there is a
// cursor.
bool IsOutlined(const QWidget& control) {
  if (control.window()->windowType() == Qt::Popup) return false;
  const auto* button = qobject_cast<const QPushButton*>(&control);
  if (button != nullptr) return button->isDefault() || button->autoDefault();
  return qobject_cast<const QAbstractScrollArea*>(&control) != nullptr &&
         !control.testAttribute(Qt::WA_InputMethodEnabled);
}

}  // namespace

void KeyboardOutline::install() {
  QCoreApplication* application = QCoreApplication::instance();
  application->installEventFilter(new KeyboardOutline(application));
}

void KeyboardOutline::show(QWidget& control) {
  outline_ = new Outline(&control);
  outline_->setGeometry(control.rect());
  outline_->show();
}

bool KeyboardOutline::eventFilter(QObject* watched, QEvent* event) {
  const bool comes = event->type() == QEvent::FocusIn;
  if (!comes && event->type() != QEvent::FocusOut && event->type() != QEvent::Resize) return false;
  auto* control = qobject_cast<QWidget*>(watched);
  if (control == nullptr) return false;
  const bool isHere = outline_ != nullptr && outline_->parentWidget() == control;
  if (event->type() == QEvent::Resize) {
    if (isHere) outline_->setGeometry(control->rect());
    return false;
  }
  if (isHere || comes) delete outline_;
  if (comes && control->window()->testAttribute(Qt::WA_KeyboardFocusChange) && IsOutlined(*control))
    show(*control);
  return false;
}

}  // namespace korvane
