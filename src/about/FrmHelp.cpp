// SPDX-License-Identifier: GPL-3.0-or-later
#include "about/FrmHelp.h"

#include <QAction>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSplitter>
#include <QStackedWidget>
#include <QTextBrowser>
#include <QToolBar>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>

#include "about/HelpText.h"
#include "controls/Icons.h"
#include "controls/Named.h"

namespace korvane {

namespace {

constexpr int kPageRole = Qt::UserRole;
constexpr int kSideWidth = 52;  // widths and heights in average characters and lines
constexpr int kTextWidth = 100;
constexpr int kHeight = 46;
constexpr int kLargestZoom = 12;
constexpr int kSmallestZoom = -4;

}  // namespace

FrmHelp::FrmHelp(const QString& path, QWidget* parent) : QMainWindow(parent), file_(path), search_(file_) {
  setObjectName("FrmHelp");
  setWindowTitle("Korvane Help");
  setWindowIcon(ApplicationIcon());
  buildText();
  auto* splitter = new QSplitter;
  splitter->addWidget(sidePart());
  splitter->addWidget(text_);
  splitter->setStretchFactor(1, 1);
  splitter->setChildrenCollapsible(false);
  setCentralWidget(splitter);
  buildToolBar();
  const int unit = fontMetrics().averageCharWidth();
  const QSize pleasant(unit * (kSideWidth + kTextWidth), fontMetrics().lineSpacing() * kHeight);
  resize(pleasant.boundedTo(screen()->availableSize()));
  const int side = std::min(unit * kSideWidth, width() / 3);
  splitter->setSizes({side, width() - side});
  fillContents();
  if (!file_.problem().isEmpty()) showProblem();
}

void FrmHelp::buildToolBar() {
  QToolBar* bar = addToolBar("Navigation");
  bar->setObjectName("HelpToolbar");
  bar->setMovable(false);
  bar->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  back_ = addCommand(*bar, "back", "&Back", {QKeySequence::Back}, &FrmHelp::goBack);
  forward_ = addCommand(*bar, "forward", "&Forward", {QKeySequence::Forward}, &FrmHelp::goForward);
  addCommand(*bar, "home", "&Contents", {Qt::ALT | Qt::Key_Home}, &FrmHelp::showContents);
  bar->addSeparator();
  addCommand(*bar, "zoom-in", "&Larger", {QKeySequence::ZoomIn, Qt::CTRL | Qt::Key_Equal}, &FrmHelp::zoomIn);
  addCommand(*bar, "zoom-out", "S&maller", {QKeySequence::ZoomOut}, &FrmHelp::zoomOut);
  addCommand(*bar, "zoom-normal", "Normal Si&ze", {Qt::CTRL | Qt::Key_0}, &FrmHelp::resetZoom);
  back_->setEnabled(false);
  forward_->setEnabled(false);
}

QAction* FrmHelp::addCommand(QToolBar& bar, const char* icon, const QString& text,
                             const QList<QKeySequence>& keys, void (FrmHelp::*command)()) {
  QAction* action = bar.addAction(ThemeIcon(icon), text, this, command);
  action->setObjectName(QString("Help_").append(QString(text).remove(' ').remove('&')));
  action->setShortcuts(keys);
  action->setToolTip(QString(text).remove('&') + " (" + keys.front().toString(QKeySequence::NativeText) +
                     ')');
  return action;
}

QWidget* FrmHelp::sidePart() {
  auto* part = new QWidget;
  auto* layout = new QVBoxLayout(part);
  auto* label = new QLabel("&Search all pages:");
  searchField_ = Named("HelpSearchField", new QLineEdit);
  searchField_->setClearButtonEnabled(true);
  label->setBuddy(searchField_);
  contents_ = Named("HelpContents", new QTreeWidget);
  contents_->setAccessibleName("Contents");
  contents_->setHeaderLabel("Contents");  // not seen, but read
  contents_->setHeaderHidden(true);
  contents_->setRootIsDecorated(false);
  hits_ = Named("HelpHits", new QListWidget);
  hits_->setAccessibleName("Pages found");
  hits_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  side_ = new QStackedWidget;
  side_->addWidget(contents_);
  side_->addWidget(hits_);
  layout->addWidget(label);
  layout->addWidget(searchField_);
  layout->addWidget(side_);
  connectSidePart();
  return part;
}

void FrmHelp::connectSidePart() {
  auto* find = new QAction(this);
  find->setShortcut(QKeySequence::Find);
  addAction(find);
  connect(find, &QAction::triggered, this, &FrmHelp::startSearch);
  connect(searchField_, &QLineEdit::textChanged, this, &FrmHelp::search);
  connect(searchField_, &QLineEdit::returnPressed, this, [this] { hits_->setCurrentRow(0); });
  connect(hits_, &QListWidget::currentRowChanged, this, &FrmHelp::openHit);
  connect(contents_, &QTreeWidget::currentItemChanged, this, [this](const QTreeWidgetItem* item) {
    if (item != nullptr) goTo(item->data(0, kPageRole).toString());
  });
}

void FrmHelp::buildText() {
  text_ = Named("HelpText", new QTextBrowser);
  text_->setAccessibleName("Help page");
  text_->setOpenLinks(false);
  connect(text_, &QTextBrowser::anchorClicked, this, &FrmHelp::followLink);
}

void FrmHelp::fillContents() {
  for (const ContentsEntry& entry : file_.contents()) {
    auto* item = new QTreeWidgetItem(headingItem(entry.heading), {entry.title});
    item->setData(0, kPageRole, entry.page);
    item->setToolTip(0, entry.title);
  }
  contents_->expandAll();
}

QTreeWidgetItem* FrmHelp::headingItem(const QString& heading) {
  const int last = contents_->topLevelItemCount() - 1;
  if (last >= 0 && contents_->topLevelItem(last)->text(0) == heading) return contents_->topLevelItem(last);
  auto* item = new QTreeWidgetItem(contents_, {heading});
  item->setFlags(Qt::ItemIsEnabled);
  QFont font = item->font(0);
  font.setBold(true);
  item->setFont(0, font);
  return item;
}

void FrmHelp::showContents() {
  if (!file_.pages().empty()) goTo(file_.pages().front().name);
}

void FrmHelp::showTopic(int topic) {
  const HelpPage* page = file_.topic(topic);
  if (page == nullptr) return showContents();
  goTo(page->name);
}

void FrmHelp::goTo(const QString& page) {
  if (file_.page(page) == nullptr) return;
  if (place_ >= 0 && history_[static_cast<std::size_t>(place_)].page == page) return markWords();
  rememberScroll();
  history_.resize(static_cast<std::size_t>(place_ + 1));
  history_.push_back({page});
  ++place_;
  showPlace();
}

void FrmHelp::goInHistory(int step) {
  const int target = place_ + step;
  if (target < 0 || target >= static_cast<int>(history_.size())) return;
  rememberScroll();
  place_ = target;
  showPlace();
}

void FrmHelp::rememberScroll() {
  if (place_ >= 0) history_[static_cast<std::size_t>(place_)].scroll = text_->verticalScrollBar()->value();
}

void FrmHelp::showPlace() {
  const Place& place = history_[static_cast<std::size_t>(place_)];
  const HelpPage& page = *file_.page(place.page);
  SetHelpText(*text_->document(), page.markdown, palette());
  text_->setTextCursor(QTextCursor(text_->document()));
  text_->verticalScrollBar()->setValue(place.scroll);
  setWindowTitle(page.title + " - Korvane Help");
  back_->setEnabled(place_ > 0);
  forward_->setEnabled(place_ + 1 < static_cast<int>(history_.size()));
  markInContents(place.page);
  markWords();
}

void FrmHelp::showProblem() {
  text_->setPlainText(file_.problem());
  searchField_->setEnabled(false);
}

void FrmHelp::markInContents(const QString& page) {
  const QSignalBlocker blocker(contents_);
  contents_->setCurrentItem(nullptr);
  for (QTreeWidgetItemIterator item(contents_); *item != nullptr; ++item) {
    if ((*item)->data(0, kPageRole).toString() == page) contents_->setCurrentItem(*item);
  }
}

void FrmHelp::markWords() {
  QList<QTextEdit::ExtraSelection> marks;
  for (const QString& word : words_) {
    for (QTextCursor hit = text_->document()->find(word, 0); !hit.isNull();
         hit = text_->document()->find(word, hit)) {
      QTextEdit::ExtraSelection mark{hit, {}};
      mark.format.setBackground(palette().highlight());
      mark.format.setForeground(palette().highlightedText());
      marks.push_back(mark);
    }
  }
  text_->setExtraSelections(marks);
}

void FrmHelp::followLink(const QUrl& link) {
  if (link.scheme().startsWith("http")) {
    Q_EMIT webLinkOpened(link.toString());
  } else {
    goTo(link.path());
  }
}

void FrmHelp::startSearch() {
  searchField_->setFocus();
  searchField_->selectAll();
}

void FrmHelp::search(const QString& text) {
  words_ = SearchWords(text);
  const QSignalBlocker blocker(hits_);
  hits_->clear();
  for (const HelpHit& hit : search_.find(words_)) {
    auto* item = new QListWidgetItem(QString("%1 (%2)").arg(hit.page->title).arg(hit.count), hits_);
    item->setData(kPageRole, hit.page->name);
  }
  if (hits_->count() == 0) (new QListWidgetItem("No page has these words.", hits_))->setFlags({});
  hits_->setCurrentRow(-1);
  side_->setCurrentWidget(words_.isEmpty() ? static_cast<QWidget*>(contents_) : hits_);
  markWords();
}

void FrmHelp::openHit(int row) {
  if (const QListWidgetItem* item = hits_->item(row)) goTo(item->data(kPageRole).toString());
  const QList<QTextEdit::ExtraSelection> marks = text_->extraSelections();
  if (marks.isEmpty()) return;
  const auto first = std::ranges::min_element(
      marks, {}, [](const QTextEdit::ExtraSelection& mark) { return mark.cursor.position(); });
  QTextCursor cursor = first->cursor;
  cursor.clearSelection();
  text_->setTextCursor(cursor);
  text_->ensureCursorVisible();
}

void FrmHelp::zoomTo(int step) {
  const int target = std::clamp(step, kSmallestZoom, kLargestZoom);
  text_->zoomIn(target - zoom_);
  zoom_ = target;
}

// The colours of links are taken from the palette when a page is set.
void FrmHelp::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || place_ < 0) return;
  rememberScroll();
  showPlace();
}

void FrmHelp::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
  } else {
    QMainWindow::keyPressEvent(event);
  }
}

}  // namespace korvane
