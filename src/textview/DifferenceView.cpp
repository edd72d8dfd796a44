// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/DifferenceView.h"

#include <QEvent>
#include <QFontDatabase>
#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>
#include <Qsci/qsciscintilla.h>

#include <algorithm>

#include "controls/Named.h"

namespace korvane {

namespace {

using Sci = QsciScintillaBase;

// Both move together; a bar that has got what it is told says no more.
void Join(QScrollBar* bar, QScrollBar* other) {
  QObject::connect(bar, &QScrollBar::valueChanged, other, &QScrollBar::setValue);
  QObject::connect(other, &QScrollBar::valueChanged, bar, &QScrollBar::setValue);
}

}  // namespace

DifferenceView::DifferenceView(QWidget* parent)
    : QWidget(parent),
      former_(new ComparedPane(ComparedPane::Side::former, this)),
      present_(new ComparedPane(ComparedPane::Side::present, this)),
      font_(QFontDatabase::systemFont(QFontDatabase::FixedFont)) {
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins({});
  layout->setVerticalSpacing(2);
  const std::array panes = {former_, present_};
  const std::array names = {"formerText", "presentText"};
  for (std::size_t i = 0; i < panes.size(); ++i) {
    titles_[i] = new QLabel;
    titles_[i]->setTextFormat(Qt::PlainText);
    titles_[i]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    layout->addWidget(titles_[i], 0, static_cast<int>(i));
    layout->addWidget(Named(names[i], &panes[i]->control()), 1, static_cast<int>(i));
    layout->setColumnStretch(static_cast<int>(i), 1);
  }
  former_->control().setAccessibleName("Former text");
  present_->control().setAccessibleName("Text beside it");
  setFocusProxy(&present_->control());
  connectPanes(*former_, *present_);
  connectPanes(*present_, *former_);
  Join(former_->control().verticalScrollBar(), present_->control().verticalScrollBar());
  Join(former_->control().horizontalScrollBar(), present_->control().horizontalScrollBar());
  applyLook();
}

void DifferenceView::connectPanes(ComparedPane& pane, ComparedPane& other) {
  connect(&pane, &ComparedPane::rowChanged, this, [this, &other](int row) { rowMoved(other, row); });
  connect(&pane, &ComparedPane::foldAsked, this, &DifferenceView::toggleFold);
  connect(&pane, &ComparedPane::zoomed, this,
          [&other](int zoom) { other.control().SendScintilla(Sci::SCI_SETZOOM, static_cast<long>(zoom)); });
}

void DifferenceView::show(TextPairPtr pair, const QString& formerTitle, const QString& presentTitle) {
  pair_ = std::move(pair);
  titles_[0]->setText(formerTitle);
  titles_[1]->setText(presentTitle);
  former_->show(pair_);
  present_->show(pair_);
  alignWidths();
  row_ = 0;
  change_ = -1;
  foldedRows_.assign(pair_ == nullptr ? 0 : pair_->aligned.rows.size(), false);
  setFolded(folded_);
  if (changeCount() > 0) goToChange(0);
  Q_EMIT currentChangeChanged(currentChange());
}

// As wide as the wider one: with a scroll bar below only one of them their last lines would not meet.
void DifferenceView::alignWidths() {
  const int width = std::max(former_->textWidth(), present_->textWidth());
  for (ComparedPane* pane : {former_, present_})
    pane->control().SendScintilla(Sci::SCI_SETSCROLLWIDTH, static_cast<long>(width));
}

void DifferenceView::setTextFont(const QFont& font) {
  font_ = font;
  applyLook();
}

void DifferenceView::setFolded(bool folded) {
  folded_ = folded;
  for (std::size_t row = 0; row < foldedRows_.size(); ++row) {
    if (pair_->aligned.rows[row].state == AlignedRow::State::fold) setFold(row, folded);
  }
  former_->showAtScrollBar();
  present_->showAtScrollBar();
}

void DifferenceView::toggleFold(int row) {
  setFold(static_cast<std::size_t>(row), !foldedRows_[static_cast<std::size_t>(row)]);
  former_->showAtScrollBar();
  present_->showAtScrollBar();
}

void DifferenceView::setFold(std::size_t row, bool folded) {
  foldedRows_[row] = folded;
  for (ComparedPane* pane : {former_, present_})
    pane->setHidden(row + 1, pair_->aligned.rows[row].folded, folded);
}

int DifferenceView::changeCount() const {
  return pair_ == nullptr ? 0 : static_cast<int>(pair_->aligned.changes.size());
}

int DifferenceView::currentChange() const {
  if (pair_ == nullptr) return -1;
  const std::vector<std::size_t>& changes = pair_->aligned.changes;
  const auto behind = std::ranges::upper_bound(changes, static_cast<std::size_t>(row_));
  return static_cast<int>(behind - changes.begin()) - 1;
}

void DifferenceView::goToChange(int change) {
  if (change >= 0 && change < changeCount())
    goToRow(pair_->aligned.changes[static_cast<std::size_t>(change)]);
}

void DifferenceView::goToLines(std::uint32_t former, std::uint32_t present) {
  if (pair_ == nullptr || former + present == 0) return;
  const std::vector<AlignedRow>& rows = pair_->aligned.rows;
  const auto found = std::ranges::find_if(rows, [&](const AlignedRow& each) {
    return present != 0 ? each.present == present : each.former == former;
  });
  if (found == rows.end()) return;
  const auto row = static_cast<std::size_t>(found - rows.begin());
  for (std::size_t fold = 0; fold < row; ++fold) {
    if (foldedRows_[fold] && fold + rows[fold].folded >= row) setFold(fold, false);
  }
  goToRow(row);
}

void DifferenceView::goToNext() {
  goToChange(currentChange() + 1);
}

// From inside of a change to its begin first.
void DifferenceView::goToPrevious() {
  const int change = currentChange();
  if (change < 0) return;
  const bool atBegin =
      pair_->aligned.changes[static_cast<std::size_t>(change)] == static_cast<std::size_t>(row_);
  goToChange(atBegin ? change - 1 : change);
}

void DifferenceView::goToRow(std::size_t row) {
  for (ComparedPane* pane : {former_, present_}) {
    pane->setRow(static_cast<int>(row));
    pane->scrollTo(static_cast<int>(row));
  }
  rowMoved(*former_, static_cast<int>(row));
}

void DifferenceView::rowMoved(ComparedPane& other, int row) {
  row_ = row;
  other.setRow(row);
  if (std::exchange(change_, currentChange()) != change_) Q_EMIT currentChangeChanged(change_);
}

QString DifferenceView::selectedText() const {
  const bool inFormer = former_->control().hasFocus();
  const QString selected = (inFormer ? former_ : present_)->selectedText();
  return selected.isEmpty() ? (inFormer ? present_ : former_)->selectedText() : selected;
}

AlignedRow DifferenceView::currentRow() const {
  const auto row = static_cast<std::size_t>(row_);
  return pair_ == nullptr || row >= pair_->aligned.rows.size() ? AlignedRow() : pair_->aligned.rows[row];
}

void DifferenceView::applyLook() {
  for (ComparedPane* pane : {former_, present_}) pane->applyLook(font_, palette());
  alignWidths();
}

void DifferenceView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) applyLook();
}

}  // namespace korvane
