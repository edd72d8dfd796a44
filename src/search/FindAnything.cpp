// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/FindAnything.h"

#include <QAction>
#include <QApplication>
#include <QKeyEvent>
#include <QListView>
#include <QVBoxLayout>

#include <algorithm>

#include "app/CatalogueService.h"
#include "app/Commands.h"
#include "controls/Named.h"
#include "search/SearchList.h"

namespace korvane {

namespace {

constexpr int kListWidth = 620;   // pixels
constexpr int kFieldWidth = 220;  // of a field in a menu bar
constexpr int kMostShown = 16;    // rows
constexpr int kMargin = 4;
constexpr int kPage = 10;  // rows

const QString kHint = QStringLiteral("Find anything (Ctrl+P)");

}  // namespace

QLineEdit* FindAnything::makeField() {
  auto* field = Named("findAnythingField", new QLineEdit);
  field->setPlaceholderText(kHint);
  field->setAccessibleName(kHint);
  field->setClearButtonEnabled(true);
  field->setMinimumWidth(kFieldWidth);
  return field;
}

FindAnything::FindAnything(QWidget& window, Desk desk, QLineEdit* field)
    : QFrame(&window),
      window_(window),
      desk_(std::move(desk)),
      field_(field != nullptr ? field : makeField()),
      ownField_(field == nullptr),
      list_(Named("findAnythingList", new QListView)),
      model_(new SearchModel(this)) {
  setObjectName("FindAnything");
  setAccessibleName("Find anything");
  setFrameStyle(QFrame::StyledPanel | QFrame::Raised);
  setAutoFillBackground(true);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  if (ownField_) layout->addWidget(field_);
  layout->addWidget(list_);
  list_->setModel(model_);
  list_->setItemDelegate(new SearchDelegate(list_));
  list_->setAccessibleName("Found");
  list_->setFocusPolicy(Qt::NoFocus);
  list_->setUniformItemSizes(true);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  field_->installEventFilter(this);
  window_.installEventFilter(this);
  hide();
  connect(field_, &QLineEdit::textEdited, this, &FindAnything::showList);
  connect(list_, &QListView::clicked, this, [this](const QModelIndex& index) { take(index, false); });
  connect(&desk_.rows.names(), &CatalogueService::changed, this, [this] {
    if (isVisible()) refresh();
  });
}

void FindAnything::open() {
  QWidget* focus = QApplication::focusWidget();
  if (focus != field_) before_ = focus;
  showList();
  field_->setFocus(Qt::ShortcutFocusReason);
  field_->selectAll();
}

void FindAnything::showList() {
  if (!isVisible()) desk_.rows.names().refresh();
  refresh();
  show();
  raise();
}

void FindAnything::refresh() {
  model_->setRows(desk_.rows.find(field_->text(), {desk_.commands.all(), desk_.goToLine != nullptr}));
  const QModelIndex first = model_->index(0);
  list_->setCurrentIndex((model_->flags(first) & Qt::ItemIsSelectable) != 0 ? first : QModelIndex());
  const int rows = std::clamp(model_->rowCount(), 1, kMostShown);
  list_->setFixedHeight(rows * std::max(list_->sizeHintForRow(0), 1) + 2 * list_->frameWidth());
  adjustSize();
  resize(std::min(kListWidth, window_.width()), sizeHint().height());
  const QPoint below = field_->mapTo(&window_, QPoint(field_->width(), field_->height()));
  move(ownField_ ? QPoint((window_.width() - width()) / 2, 0)
                 : QPoint(std::max(below.x() - width(), 0), below.y()));
}

// The keyboard goes back to where it was, unless something else has taken it already.
void FindAnything::close() {
  if (!isVisible()) return;
  // Asked before the field goes: the next control gets the keyboard then.
  const QWidget* focus = QApplication::focusWidget();
  const bool hadFocus = focus == field_ || focus == nullptr;
  hide();
  field_->clear();
  if (hadFocus && before_ != nullptr) before_->setFocus();
}

void FindAnything::moveBy(int rows) {
  const int last = model_->rowCount() - 1;
  for (int row = list_->currentIndex().row() + rows; row >= 0 && row <= last; row += rows > 0 ? 1 : -1) {
    if ((model_->flags(model_->index(row)) & Qt::ItemIsSelectable) == 0) continue;
    list_->setCurrentIndex(model_->index(row));
    return;
  }
}

bool FindAnything::keyPressed(int key, Qt::KeyboardModifiers modifiers) {
  switch (key) {
    case Qt::Key_Escape:
      if (!isVisible()) return false;
      close();
      return true;
    case Qt::Key_Down:
    case Qt::Key_Up:
      if (!isVisible()) showList();
      moveBy(key == Qt::Key_Down ? 1 : -1);
      return true;
    case Qt::Key_PageDown:
    case Qt::Key_PageUp:
      moveBy(key == Qt::Key_PageDown ? kPage : -kPage);
      return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      take(list_->currentIndex(), (modifiers & Qt::ControlModifier) != 0);
      return true;
    default:
      return false;
  }
}

// What is chosen may close this window, which must not happen in the middle of the click: it waits for the
// next turn.
void FindAnything::take(const QModelIndex& index, bool inEditor) {
  if (!isVisible() || !index.isValid()) return;
  const SearchRow row = model_->row(index);
  if (row.what == SearchRow::What::hint) return;
  close();
  desk_.rows.remember(row);
  const QPointer<QAction> command = row.command;
  const auto carry = [this, row, command, inEditor] { carryOut(row, command, inEditor); };
  QMetaObject::invokeMethod(this, carry, Qt::QueuedConnection);
}

void FindAnything::carryOut(const SearchRow& row, QAction* command, bool inEditor) {
  switch (row.what) {
    case SearchRow::What::command:
      if (command != nullptr) command->trigger();
      break;
    case SearchRow::What::line:
      if (desk_.goToLine) desk_.goToLine(row.item.place.line);
      break;
    case SearchRow::What::item:
      inEditor ? desk_.places.showPlace(row.item.place) : desk_.places.showItem(row.item);
      break;
    default:
      desk_.places.showPlace(row.item.place);
  }
}

bool FindAnything::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &window_ && event->type() == QEvent::Resize && isVisible()) refresh();
  if (watched != field_) return QFrame::eventFilter(watched, event);
  if (event->type() == QEvent::KeyPress) {
    const auto* key = static_cast<QKeyEvent*>(event);
    if (keyPressed(key->key(), key->modifiers())) return true;
  }
  if (event->type() == QEvent::FocusIn && !isVisible() && !ownField_) showList();
  if (event->type() == QEvent::FocusOut) {
    const auto reason = static_cast<QFocusEvent*>(event)->reason();
    if (reason != Qt::PopupFocusReason && reason != Qt::ActiveWindowFocusReason) close();
  }
  return QFrame::eventFilter(watched, event);
}

}  // namespace korvane
