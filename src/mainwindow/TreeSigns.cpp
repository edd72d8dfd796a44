// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/TreeSigns.h"

#include <QApplication>
#include <QPainter>

#include <algorithm>

#include "controls/Icons.h"
#include "mainwindow/ObjectTreeModel.h"

namespace korvane {

namespace {

constexpr int kGap = 4;  // pixels before each sign

QStringList SignsOf(const QModelIndex& index) {
  return index.data(ObjectTreeModel::signsRole).toStringList();
}

int SignSize(const QStyleOptionViewItem& option) {
  return option.fontMetrics.ascent();
}

int SignsWidth(const QStyleOptionViewItem& option, const QStringList& signs) {
  return static_cast<int>(signs.size()) * (kGap + SignSize(option));
}

const QStyle& StyleOf(const QStyleOptionViewItem& option) {
  return option.widget == nullptr ? *QApplication::style() : *option.widget->style();
}

}  // namespace

// Where there is no space for both, the text is cut off, not the signs.
void TreeSigns::paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const {
  const QStringList signNames = SignsOf(index);
  if (signNames.isEmpty()) return QStyledItemDelegate::paint(painter, option, index);
  QStyleOptionViewItem item(option);
  initStyleOption(&item, index);
  const QStyle& style = StyleOf(item);
  const QRect text = style.subElementRect(QStyle::SE_ItemViewItemText, &item, item.widget);
  const int margin = style.pixelMetric(QStyle::PM_FocusFrameHMargin, &item, item.widget) + 1;
  const int space = std::max(0, item.rect.right() - text.left() - 2 * margin - SignsWidth(item, signNames));
  item.text = item.fontMetrics.elidedText(item.text, item.textElideMode, space);
  style.drawControl(QStyle::CE_ItemViewItem, &item, painter, item.widget);
  const bool isSelected = (item.state & QStyle::State_Selected) != 0;
  const int size = SignSize(item);
  QRect place(text.left() + margin + item.fontMetrics.horizontalAdvance(item.text) + kGap,
              item.rect.center().y() - size / 2, size, size);
  for (const QString& sign : signNames) {
    ThemeIcon(sign).paint(painter, place, Qt::AlignCenter, isSelected ? QIcon::Selected : QIcon::Normal);
    place.translate(kGap + size, 0);
  }
}

QSize TreeSigns::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  QStyleOptionViewItem item(option);
  initStyleOption(&item, index);
  return QStyledItemDelegate::sizeHint(option, index) + QSize(SignsWidth(item, SignsOf(index)), 0);
}

}  // namespace korvane
