// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FolderTree.h"

#include <QDir>
#include <QHeaderView>
#include <QKeyEvent>

#include <algorithm>
#include <utility>

#include "controls/ClickView.h"
#include "controls/PathField.h"

namespace korvane {

namespace {

constexpr int kLayoutDelayMs = 150;

// With the system's separator at its end, as the paths of all that lies in it begin.
QString AsBeginning(const QString& native) {
  return native.endsWith(QDir::separator()) ? native : native + QDir::separator();
}

bool IsBelow(QModelIndex index, const QModelIndex& ancestor) {
  do index = index.parent();
  while (index.isValid() && index != ancestor);
  return index.isValid();
}

}  // namespace

FolderTree::FolderTree(const QList<FolderPlace>& places, QWidget* parent)
    : QTreeView(parent), model_(new FolderModel(places, this)), pathField_(new PathField(this)) {
  setAccessibleName("Folders");
  setHeaderHidden(true);
  setUniformRowHeights(true);
  setIconSize(fontMetrics().height() * QSize(1, 1));
  setModel(model_);
  header()->setStretchLastSection(false);
  header()->setResizeContentsPrecision(0);  // the rows on the screen only
  header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  connect(this, &QTreeView::expanded, model_, &FolderModel::look);
  connect(this, &QTreeView::collapsed, this, &FolderTree::closed);
  // Folders that turned out to be empty lose the mark that they can be opened. A new layout takes its time in
  // a very large folder, so it waits until the scrolling has ended.
  layoutTimer_.setSingleShot(true);
  layoutTimer_.setInterval(kLayoutDelayMs);
  connect(model_, &FolderModel::settled, &layoutTimer_, qOverload<>(&QTimer::start));
  connect(&layoutTimer_, &QTimer::timeout, this, &FolderTree::scheduleDelayedItemsLayout);
  connect(model_, &FolderModel::settled, this, &FolderTree::revealOn);
  connect(pathField_, &PathField::folderEntered, this, &FolderTree::reveal);
  connect(pathField_, &PathField::left, this, [this] { setFocus(); });
}

// Rows on the screen are read ahead, which shows where the game is. A drive is read only when the user opens
// it: one that is not there can take long to say so.
void FolderTree::drawRow(QPainter* painter, const QStyleOptionViewItem& option,
                         const QModelIndex& index) const {
  if (index.parent().isValid()) model_->look(index);
  QTreeView::drawRow(painter, option, index);
}

// Never less than before: a row that goes out of sight behind the horizontal scroll bar would take away the
// width that the bar is there for, and bring the row back, without end.
int FolderTree::sizeHintForColumn(int column) const {
  widest_ = std::max(widest_, QTreeView::sizeHintForColumn(column));
  return widest_;
}

// The highlight spans the whole width.
void FolderTree::resizeEvent(QResizeEvent* event) {
  header()->setMinimumSectionSize(viewport()->width());
  QTreeView::resizeEvent(event);
  placePathField();
}

void FolderTree::keyPressEvent(QKeyEvent* event) {
  toReveal_.clear();  // the user goes elsewhere
  const QString path = pathBegunWith(*event);
  if (path.isEmpty()) return QTreeView::keyPressEvent(event);
  openPathField(path);
}

void FolderTree::mousePressEvent(QMouseEvent* event) {
  toReveal_.clear();
  QTreeView::mousePressEvent(event);
}

// What the path field begins with when this key opens it; empty when it does not.
QString FolderTree::pathBegunWith(const QKeyEvent& event) {
  if (event.key() == Qt::Key_L && event.modifiers() == Qt::ControlModifier) {
    const QString selected = currentIndex().data(FolderModel::NativePathRole).toString();
    return AsBeginning(selected);
  }
  const QString before = std::exchange(typed_, typed_ + event.text());
  if (event.text().isEmpty() || !event.text()[0].isLetter()) typed_.clear();
  if (event.text() == "/" || event.text() == "~") return event.text();
  return event.text() == ":" && before.size() == 1 ? before + ':' : QString();
}

void FolderTree::openPathField(const QString& text) {
  placePathField();
  pathField_->raise();
  pathField_->open(text);
}

void FolderTree::placePathField() {
  pathField_->setGeometry(viewport()->x(), viewport()->y(), viewport()->width(),
                          pathField_->sizeHint().height());
}

// The place that is nearest above the path; invalid where there is none.
QModelIndex FolderTree::placeOf(const QString& native) const {
  QModelIndex nearest;
  qsizetype longest = 0;
  for (int row = 0; row < model_->rowCount(); ++row) {
    const QModelIndex place = model_->index(row, 0);
    const QString folder = AsBeginning(place.data(FolderModel::NativePathRole).toString());
    if (folder.size() <= longest || !AsBeginning(native).startsWith(folder)) continue;
    longest = folder.size();
    nearest = place;
  }
  return nearest;
}

void FolderTree::reveal(const QString& native) {
  const QModelIndex place = placeOf(native);
  if (!place.isValid()) return;
  const qsizetype known = place.data(FolderModel::NativePathRole).toString().size();
  reached_ = place;
  toReveal_ = native.mid(known).split('/', Qt::SkipEmptyParts);
  setCurrentIndex(place);
  revealOn();
}

// As far as folders have been read; the rest when the next one has.
void FolderTree::revealOn() {
  while (!toReveal_.isEmpty() && reached_.isValid()) {
    expand(reached_);
    if (!model_->isRead(reached_)) return model_->look(reached_);
    const QModelIndex next = model_->child(reached_, toReveal_.takeFirst());
    if (!next.isValid()) return toReveal_.clear();
    reached_ = next;
    setCurrentIndex(next);
    scrollTo(next, PositionAtCenter);
  }
}

void FolderTree::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
  QTreeView::selectionChanged(selected, deselected);
  const QModelIndexList indexes = selected.indexes();
  if (!indexes.isEmpty()) Q_EMIT folderSelected(indexes.first().data(FolderModel::PathRole).toString());
}

QItemSelectionModel::SelectionFlags FolderTree::selectionCommand(const QModelIndex& index,
                                                                 const QEvent* event) const {
  return SteadySelection(QTreeView::selectionCommand(index, event), index, event);
}

// A closed folder is read anew when it is opened the next time.
void FolderTree::closed(const QModelIndex& index) {
  if (IsBelow(currentIndex(), index)) setCurrentIndex(index);
  model_->forget(index);
  widest_ = 0;
}

}  // namespace korvane
