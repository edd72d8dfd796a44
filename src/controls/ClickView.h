// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QItemSelectionModel>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QResizeEvent>

#include <limits>

namespace korvane {

// The selection of a view in which an entry that is selected stays so until another one is: no click and no
// key takes a selection back. `command`: what Qt would do on reaching `index`. Without an event it
// is the program that selects.
inline QItemSelectionModel::SelectionFlags SteadySelection(QItemSelectionModel::SelectionFlags command,
                                                           const QModelIndex& index, const QEvent* event) {
  if (event == nullptr) return command;
  const bool takesBack = command.testFlag(QItemSelectionModel::Toggle) ||
                         command.testFlag(QItemSelectionModel::Deselect) || !index.isValid();
  if (!takesBack) return command;
  return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                         : QItemSelectionModel::NoUpdate;
}

// A tree or list view in which reaching an entry with the keyboard counts as a click on it: clicked() is
// emitted for the mouse and for the keyboard, never for a selection made by the program.
template <typename View>
class ClickView : public View {
 public:
  using View::View;

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const QPersistentModelIndex before = this->currentIndex();
    takeKey(event);
    const QModelIndex after = this->currentIndex();
    const bool again = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (after.isValid() && (after != before || again)) Q_EMIT this->clicked(after);
  }

  // The other buttons select too, and so have to count as a click.
  void mousePressEvent(QMouseEvent* event) override {
    const QPersistentModelIndex before = this->currentIndex();
    View::mousePressEvent(event);
    pressed_ = this->currentIndex();
    if (event->button() != Qt::LeftButton && pressed_.isValid() && pressed_ != before)
      Q_EMIT this->clicked(pressed_);
  }

  // A drag with the button held moves the selection, and ends on an entry that was never pressed.
  void mouseReleaseEvent(QMouseEvent* event) override {
    const QPersistentModelIndex pressed = pressed_;
    View::mouseReleaseEvent(event);
    const QModelIndex now = this->currentIndex();
    if (event->button() == Qt::LeftButton && now.isValid() && now != pressed) Q_EMIT this->clicked(now);
  }

  // A view that gets less high, such as by a sentence below it, goes on showing the current entry.
  void resizeEvent(QResizeEvent* event) override {
    const QRect entry = this->visualRect(this->currentIndex());
    const bool wasSeen = entry.isValid() && entry.top() >= 0 && entry.bottom() < event->oldSize().height();
    View::resizeEvent(event);
    if (wasSeen && entry.bottom() >= event->size().height()) this->scrollTo(this->currentIndex());
  }

  QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex& index,
                                                       const QEvent* event) const override {
    return SteadySelection(View::selectionCommand(index, event), index, event);
  }

 private:
  // Letters that were typed in one go search for one name, also when they come in late because something else
  // was going on.
  void takeKey(QKeyEvent* event) {
    const int interval = QApplication::keyboardInputInterval();
    const bool isLetter = !event->text().isEmpty() && event->text()[0].isPrint();
    const bool goesOn =
        isLetter && lastLetter_ != 0 && event->timestamp() - lastLetter_ <= static_cast<quint64>(interval);
    if (isLetter) lastLetter_ = event->timestamp();
    if (goesOn) QApplication::setKeyboardInputInterval(std::numeric_limits<int>::max());
    View::keyPressEvent(event);
    QApplication::setKeyboardInputInterval(interval);
  }

  QPersistentModelIndex pressed_;
  quint64 lastLetter_ = 0;  // when it was typed, in milliseconds of the system's own
};

}  // namespace korvane
