// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/ProposalList.h"

#include <QPainter>
#include <QScreen>
#include <QScrollBar>
#include <QStandardItemModel>
#include <QStyledItemDelegate>

#include <algorithm>

#include "app/Places.h"
#include "controls/ReadableColours.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr int kShownRows = 10;
constexpr int kLeastWidth = 160;  // pixels
constexpr int kMostWidth = 560;
constexpr int kBetween = 24;  // text and what it is
constexpr int kWhatItIs = Qt::UserRole;

QString WhatItIs(const Proposal& proposal) {
  switch (proposal.kind) {
    case Proposal::Kind::key:
      return QStringLiteral("key");
    case Proposal::Kind::block:
      return QStringLiteral("block");
    case Proposal::Kind::name:
      return KindName(proposal.item);
    default:
      return {};
  }
}

// Says at the right what the text is.
class ProposalDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override {
    QStyledItemDelegate::paint(painter, option, index);
    const bool selected = (option.state & QStyle::State_Selected) != 0;
    const QPalette& palette = option.palette;
    const QColor colour =
        selected ? PaleText(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight))
                 : PaleText(palette.color(QPalette::Text), palette.color(QPalette::Base));
    painter->save();
    painter->setPen(colour);
    const QRect at = option.rect.adjusted(0, 0, -kBetween / 4, 0);
    painter->drawText(at, Qt::AlignRight | Qt::AlignVCenter, index.data(kWhatItIs).toString());
    painter->restore();
  }
};

}  // namespace

ProposalList::ProposalList(QWidget& owner) : QListView(&owner), rows_(new QStandardItemModel(this)) {
  setWindowFlags(Qt::ToolTip | Qt::FramelessWindowHint);
  setAttribute(Qt::WA_ShowWithoutActivating);
  setFocusPolicy(Qt::NoFocus);
  setObjectName("ProposalList");
  setAccessibleName("Proposals");
  setFrameStyle(QFrame::Box | QFrame::Plain);
  setModel(rows_);
  setItemDelegate(new ProposalDelegate(this));
  setUniformItemSizes(true);
  setEditTriggers(NoEditTriggers);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setTextElideMode(Qt::ElideMiddle);
  connect(this, &QListView::clicked, this, &ProposalList::taken);
}

void ProposalList::show(const std::vector<Proposal>& proposals, const QRect& word) {
  fill(proposals);
  setCurrentIndex(rows_->index(0, 0));
  place(word);
  QListView::show();
}

void ProposalList::fill(const std::vector<Proposal>& proposals) {
  rows_->clear();
  int width = kLeastWidth;
  for (const Proposal& each : proposals) {
    auto* row = new QStandardItem(FromBytes(each.text));
    row->setData(WhatItIs(each), kWhatItIs);
    width = std::max(width, fontMetrics().horizontalAdvance(row->text() + WhatItIs(each)));
    rows_->appendRow(row);
  }
  const int shown = std::min(kShownRows, rows_->rowCount());
  resize(std::min(width + kBetween + verticalScrollBar()->sizeHint().width(), kMostWidth),
         shown * sizeHintForRow(0) + 2 * frameWidth());
}

void ProposalList::place(const QRect& word) {
  const QScreen* screen = parentWidget()->screen();
  const QRect within = screen->availableGeometry();
  const bool below = word.bottom() + height() <= within.bottom() || word.top() - height() < within.top();
  const int x = std::max(std::min(word.left(), within.right() - width()), within.left());
  QListView::move(x, below ? word.bottom() + 1 : word.top() - height());
}

QString ProposalList::chosen() const {
  return currentIndex().data().toString();
}

void ProposalList::move(int rows) {
  const int row = std::clamp(currentIndex().row() + rows, 0, rows_->rowCount() - 1);
  setCurrentIndex(rows_->index(row, 0));
}

void ProposalList::movePage(int pages) {
  move(pages * (kShownRows - 1));
}

}  // namespace korvane
