// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/ListAndTable.h"

#include <QStyle>
#include <QStyledItemDelegate>

#include <algorithm>

#include "controls/ShownText.h"
#include "platform/Twips.h"

namespace korvane {

namespace {

// Twips.
constexpr int kMargin = 100;       // left of the list, right of the table, above and below both
constexpr int kListShorter = 175;  // subtracted from the table's left edge to give the list's width

constexpr int kTablePercent = 30;  // where the table begins

// The widest name is almost certainly among the longest; measuring costs a thousand times as much as
// comparing lengths.
constexpr qsizetype kMeasured = 32;

QStringList Longest(QStringList names) {
  const qsizetype count = std::min(kMeasured, names.size());
  std::partial_sort(names.begin(), names.begin() + count, names.end(),
                    [](const QString& a, const QString& b) { return a.size() > b.size(); });
  return names.first(count);
}

class NameDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;
  QString displayText(const QVariant& name, const QLocale&) const override {
    return ShownText(name.toString());
  }
};

}  // namespace

ListAndTable::ListAndTable(QWidget* parent)
    : QWidget(parent), LstWPN_(new ClickView<QListView>(this)), LVEdit_(new InPlaceTable(this)) {
  LstWPN_->setObjectName("LstWPN");
  LstWPN_->setAccessibleName("Entries");
  LstWPN_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  LstWPN_->setItemDelegate(new NameDelegate(this));
  LVEdit_->setObjectName("LVEdit");
  LVEdit_->setAccessibleName("Parameters");
}

void ListAndTable::fitRows(const QStringList& names) {
  if (names.isEmpty()) return;
  const QFontMetrics font = LstWPN_->fontMetrics();
  QSize size = LstWPN_->sizeHintForIndex(LstWPN_->model()->index(0, 0));
  const int padding = size.width() - font.horizontalAdvance(ShownText(names.first()));
  for (const QString& name : Longest(names)) {
    size.setWidth(std::max(size.width(), padding + font.horizontalAdvance(ShownText(name))));
  }
  LstWPN_->setGridSize(size);
}

int ListAndTable::widthFor(int columnTwips) const {
  const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, LVEdit_);
  const int table = PixelsFromTwips(columnTwips + kMargin, *this) + scrollBar + 2 * LVEdit_->frameWidth();
  return table * 100 / (100 - kTablePercent) + 1;
}

void ListAndTable::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  const int margin = PixelsFromTwips(kMargin, *this);
  const int tableLeft = width() * kTablePercent / 100;
  const int tableHeight = height() - 2 * margin;
  LstWPN_->setGeometry(margin, margin, tableLeft - PixelsFromTwips(kListShorter, *this), tableHeight);
  LVEdit_->setGeometry(tableLeft, margin, width() - tableLeft - margin, tableHeight);
}

}  // namespace korvane
