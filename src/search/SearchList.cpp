// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/SearchList.h"

#include <QPainter>

#include <algorithm>

#include "controls/ReadableColours.h"

namespace korvane {

namespace {

constexpr int kRowPadding = 3;  // pixels above and below a text
constexpr int kGap = 8;
constexpr int kBadgeWidth = 3;  // in widths of an "M"

// "CS" for CommandSet, "O" for Object.
QString BadgeOf(const SearchRow& row) {
  QString letters;
  for (const QChar c : row.kind) {
    if (c.isUpper()) letters += c;
  }
  return letters.left(2);
}

bool IsMarked(const std::vector<NamePart>& marks, int position) {
  return std::any_of(marks.begin(), marks.end(), [position](const NamePart& part) {
    const auto at = static_cast<std::uint32_t>(position);
    return at >= part.begin && at < part.begin + part.size;
  });
}

// Draws the name in stretches of bold and ordinary letters; gives the place behind it.
int DrawName(QPainter& painter, const QRect& area, const SearchRow& row) {
  QFont bold = painter.font();
  const QFont plain = painter.font();
  bold.setBold(true);
  int x = area.left();
  for (int from = 0; from < row.name.size();) {
    const bool marked = IsMarked(row.marks, from);
    int to = from + 1;
    while (to < row.name.size() && IsMarked(row.marks, to) == marked) ++to;
    painter.setFont(marked ? bold : plain);
    const QString part = row.name.mid(from, to - from);
    painter.drawText(QRect(x, area.top(), area.right() - x, area.height()), Qt::AlignVCenter, part);
    x += painter.fontMetrics().horizontalAdvance(part);
    from = to;
  }
  painter.setFont(plain);
  return std::min(x, area.right());
}

void DrawBadge(QPainter& painter, const QRect& area, const QString& letters) {
  if (letters.isEmpty()) return;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.drawRoundedRect(area.adjusted(0, 1, -1, -2), 3, 3);
  painter.drawText(area, Qt::AlignCenter, letters);
  painter.restore();
}

// `pale`: for what stands behind the name.
void DrawRow(QPainter& painter, const QRect& rect, const SearchRow& row, const QColor& pale) {
  const QFontMetrics metrics = painter.fontMetrics();
  const int badge = metrics.horizontalAdvance('M') * kBadgeWidth;
  QRect area = rect.adjusted(kGap, 0, -kGap, 0);
  DrawBadge(painter, QRect(area.left(), area.top() + 1, badge, area.height() - 2), BadgeOf(row));
  area.setLeft(area.left() + badge + kGap);
  const int nameEnd = DrawName(painter, area, row);
  painter.setPen(pale);
  const QString where = metrics.elidedText(row.where, Qt::ElideLeft, area.width() / 2);
  const int whereStart = area.right() - metrics.horizontalAdvance(where);
  if (whereStart > nameEnd + kGap) painter.drawText(area, Qt::AlignRight | Qt::AlignVCenter, where);
  const QRect kindArea(nameEnd + kGap, area.top(), whereStart - nameEnd - 2 * kGap, area.height());
  painter.drawText(kindArea, Qt::AlignVCenter,
                   metrics.elidedText(row.kind, Qt::ElideRight, kindArea.width()));
}

}  // namespace

void SearchModel::setRows(std::vector<SearchRow> rows) {
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

const SearchRow& SearchModel::row(const QModelIndex& index) const {
  return rows_[static_cast<std::size_t>(index.row())];
}

int SearchModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

// The text is what a screen reader says.
QVariant SearchModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const SearchRow& found = row(index);
  if (role == Qt::DisplayRole) return QStringList{found.name, found.kind, found.where}.join(' ').trimmed();
  if (role == Qt::ToolTipRole) return found.where;
  return {};
}

Qt::ItemFlags SearchModel::flags(const QModelIndex& index) const {
  const bool hint = index.isValid() && row(index).what == SearchRow::What::hint;
  return hint ? Qt::ItemIsEnabled : QAbstractListModel::flags(index);
}

void SearchDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const {
  QStyleOptionViewItem panel = option;
  initStyleOption(&panel, index);
  panel.text.clear();
  const QWidget* view = option.widget;
  view->style()->drawControl(QStyle::CE_ItemViewItem, &panel, painter, view);
  painter->save();
  const bool selected = (option.state & QStyle::State_Selected) != 0;
  const QPalette& palette = option.palette;
  const QColor ink = palette.color(selected ? QPalette::HighlightedText : QPalette::Text);
  painter->setPen(ink);
  painter->setFont(option.font);
  const SearchRow& row = static_cast<const SearchModel*>(index.model())->row(index);
  DrawRow(*painter, option.rect, row,
          PaleText(ink, palette.color(selected ? QPalette::Highlight : QPalette::Base)));
  painter->restore();
}

QSize SearchDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex&) const {
  return {0, option.fontMetrics.height() + 2 * kRowPadding};
}

}  // namespace korvane
