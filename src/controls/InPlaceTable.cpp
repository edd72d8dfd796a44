// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/InPlaceTable.h"

#include <QEvent>
#include <QHeaderView>
#include <QScrollBar>

#include <algorithm>

#include "controls/InPlaceTableDelegate.h"
#include "controls/ShownText.h"
#include "platform/TextEncoding.h"
#include "platform/Twips.h"

namespace korvane {

namespace {

constexpr qsizetype kMostLines = 12;
constexpr int kRowSpace = 6;  // above and below a row's text, together

constexpr QAbstractItemView::EditTriggers kEditing =
    QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed;

}  // namespace

InPlaceTable::InPlaceTable(QWidget* parent) : QTableView(parent) {
  connect(&model_, &InPlaceTableModel::typedChanged, this, &InPlaceTable::typedChanged);
  setModel(&model_);
  setItemDelegate(new InPlaceTableDelegate(model_, this));
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setTabKeyNavigation(false);  // the Tab key leads out of the table
  setShowGrid(false);
  setWordWrap(false);
  setHorizontalScrollMode(ScrollPerPixel);
  horizontalHeader()->setHighlightSections(false);
  verticalHeader()->hide();
  fitRows();
}

void InPlaceTable::addColumn(const QString& caption, int widthTwips) {
  model_.addColumn(caption);
  const int width = PixelsFromTwips(widthTwips, *this);
  columnsWidth_ += width;
  horizontalHeader()->setStretchLastSection(false);  // or the width would not be kept
  setColumnWidth(model_.columnCount() - 1, width);
  fitColumns();
}

void InPlaceTable::fitColumns() {
  horizontalHeader()->setStretchLastSection(viewport()->width() > columnsWidth_);
}

void InPlaceTable::resizeEvent(QResizeEvent* event) {
  QTableView::resizeEvent(event);
  fitColumns();
}

void InPlaceTable::setUp(int mode) {
  setEditTriggers(mode == 0 ? NoEditTriggers : kEditing);
}

void InPlaceTable::hideHeaders() {
  horizontalHeader()->hide();
}

void InPlaceTable::setFontSize(int points) {
  QFont larger = font();
  larger.setPointSize(points);
  setFont(larger);
}

void InPlaceTable::addCell(std::string_view text, int column, EditKind kind) {
  if (column == InPlaceTableModel::kCaption) {
    addRow(FromBytes(text));
  } else {
    setValue(FromBytes(text), kind);
  }
}

void InPlaceTable::finish() {
  model_.show();
  fitRows();
}

InPlaceTable::KeptPlace::KeptPlace(InPlaceTable& table) : table_(table) {
  const QModelIndex current = table.currentIndex();
  if (current.isValid()) {
    caption_ = table.model_.shownRow(current.row()).caption;
    before_ = table.sameBefore(current.row());
    column_ = current.column();
    selected_ = table.selectionModel()->isSelected(current);
  }
  scrolled_ = {table.horizontalScrollBar()->value(), table.verticalScrollBar()->value()};
}

InPlaceTable::KeptPlace::~KeptPlace() {
  const int row = column_ < 0 ? -1 : table_.rowOf(caption_, before_);
  if (row >= 0) {
    const auto select = selected_ ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                                  : QItemSelectionModel::SelectionFlags(QItemSelectionModel::NoUpdate);
    table_.selectionModel()->setCurrentIndex(table_.model_.index(row, column_), select);
  }
  table_.doItemsLayout();  // or there would be nothing to scroll yet
  table_.horizontalScrollBar()->setValue(scrolled_.x());
  table_.verticalScrollBar()->setValue(scrolled_.y());
}

int InPlaceTable::sameBefore(int row) const {
  int same = 0;
  for (int i = 0; i < row; ++i) same += model_.shownRow(i).caption == model_.shownRow(row).caption ? 1 : 0;
  return same;
}

int InPlaceTable::rowOf(const QString& caption, int before) const {
  for (int row = 0; row < model_.rowCount(); ++row) {
    if (model_.shownRow(row).caption == caption && before-- == 0) return row;
  }
  return -1;
}

const InPlaceTableModel::Row* InPlaceTable::selectedRow() const {
  const QModelIndexList selected = selectionModel()->selectedRows();
  return selected.isEmpty() ? nullptr : &model_.shownRow(selected.first().row());
}

int InPlaceTable::rowHeightFor(int row) const {
  const auto lines = 1 + ShownText(model_.shownRow(row).value).count(QLatin1Char('\n'));
  const int text = static_cast<int>(std::min(lines, kMostLines)) * fontMetrics().lineSpacing();
  return model_.isSeparator(row) ? text / 2 : text + kRowSpace;
}

void InPlaceTable::fitRows() {
  verticalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setDefaultSectionSize(fontMetrics().lineSpacing() + kRowSpace);
  for (int row = 0; row < model_.rowCount(); ++row) {
    if (const int height = rowHeightFor(row); height != rowHeight(row)) setRowHeight(row, height);
  }
}

void InPlaceTable::changeEvent(QEvent* event) {
  QTableView::changeEvent(event);
  if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fitRows();
}

bool InPlaceTable::edit(const QModelIndex& cell, EditTrigger trigger, QEvent* event) {
  const bool byKey = trigger == EditKeyPressed || trigger == AnyKeyPressed;
  return QTableView::edit(byKey ? cell.siblingAtColumn(InPlaceTableModel::kValue) : cell, trigger, event);
}

QModelIndex InPlaceTable::nextEditable(int row, int step) const {
  for (row += step; row >= 0 && row < model_.rowCount(); row += step) {
    const QModelIndex cell = model_.index(row, InPlaceTableModel::kValue);
    if (model_.isEditable(cell)) return cell;
  }
  return {};
}

void InPlaceTable::closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) {
  const int row = currentIndex().row();
  QTableView::closeEditor(editor, QAbstractItemDelegate::NoHint);
  if (hint == QAbstractItemDelegate::NoHint || hint == QAbstractItemDelegate::RevertModelCache) return;
  const QModelIndex next = nextEditable(row, hint == QAbstractItemDelegate::EditPreviousItem ? -1 : 1);
  if (!next.isValid()) return;
  setCurrentIndex(next);
  if (hint != QAbstractItemDelegate::SubmitModelCache) QTableView::edit(next);
}

}  // namespace korvane
