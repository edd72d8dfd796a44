// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/UsesWindow.h"

#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QTreeView>

#include "app/CatalogueService.h"
#include "app/SearchCommands.h"
#include "controls/Icons.h"
#include "controls/MenuButton.h"
#include "controls/Named.h"
#include "controls/Placement.h"
#include "controls/Present.h"
#include "controls/ShownText.h"
#include "search/FoundTree.h"

namespace korvane {

namespace {

constexpr QSize kSize(820, 520);
constexpr int kWhereWidth = 340;    // pixels
constexpr int kMostExpanded = 500;  // lines that are all seen at once
constexpr int kMostOfSubject = 60;  // characters in the title

QPushButton* MakeButton(const char* name, const QString& caption) {
  auto* button = Named(name, new QPushButton(caption));
  button->setAutoDefault(false);  // Enter belongs to the tree and the fields
  return button;
}

QLineEdit* MakeField(const char* name, const QString& caption) {
  auto* field = Named(name, new QLineEdit);
  field->setPlaceholderText(caption);
  field->setAccessibleName(caption);
  field->setClearButtonEnabled(true);
  return field;
}

template <typename... Controls>
QWidget* MakeRow(Controls*... controls) {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  (layout->addWidget(controls), ...);
  return row;
}

QString Quoted(const QString& text) {
  return '\'' + ShownText(text).left(kMostOfSubject) + '\'';
}

void AddRows(QString& text, const QAbstractItemModel& rows, const QModelIndex& parent, int depth) {
  for (int row = 0; row < rows.rowCount(parent); ++row) {
    const QModelIndex index = rows.index(row, 0, parent);
    const QString line = index.siblingAtColumn(1).data().toString();
    const QString where = index.data(Qt::ToolTipRole).toString();
    text += QString(depth, '\t') + (where.isEmpty() ? index.data().toString() : where + ": " + line) + '\n';
    AddRows(text, rows, index, depth + 1);
  }
}

}  // namespace

UsesWindow::UsesWindow(SettingsStore& settings, CatalogueService& names, PlaceLauncher& places)
    : ToolDialog(nullptr, &settings), names_(names), places_(places), found_(new FoundTree(this)) {
  setObjectName("UsesWindow");
  setWindowIcon(ApplicationIcon());
  setWindowFlags(Qt::Window);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(makeTextRow());
  layout->addWidget(MakeRow(expression_, wholeWords_, letterCase_, progress_));
  layout->addWidget(makeTree());
  layout->addWidget(makeButtonRow());
  makeCommands();
  connect(&names_, &CatalogueService::changed, this, &UsesWindow::namesChanged);
  connect(&finder_, &LineFinder::found, this, &UsesWindow::take);
  connect(&finder_, &LineFinder::finished, this, &UsesWindow::end);
  resize(kSize);
  RestorePlacement(settings, *this);
  showTitle();
}

QWidget* UsesWindow::makeTextRow() {
  text_ = MakeField("soughtText", "Find in all INI files");
  expression_ = Named("asExpression", new QCheckBox("Regular e&xpression"));
  wholeWords_ = Named("wholeWords", new QCheckBox("&Whole words"));
  letterCase_ = Named("letterCase", new QCheckBox("&Letter case"));
  find_ = MakeButton("findButton", "&Find");
  progress_ = Named("searchProgress", new QProgressBar);
  progress_->setAccessibleName("Files searched");
  QSizePolicy keepsRoom = progress_->sizePolicy();
  keepsRoom.setRetainSizeWhenHidden(true);
  progress_->setSizePolicy(keepsRoom);
  progress_->hide();
  connect(text_, &QLineEdit::returnPressed, this, &UsesWindow::findText);
  connect(find_, &QPushButton::clicked, this,
          [this] { progress_->isHidden() ? findText() : finder_.stop(); });
  return MakeRow(text_, find_);
}

QWidget* UsesWindow::makeTree() {
  filtered_.setSourceModel(found_);
  filtered_.setRecursiveFilteringEnabled(true);
  filtered_.setAutoAcceptChildRows(true);
  filtered_.setFilterKeyColumn(-1);
  filtered_.setFilterCaseSensitivity(Qt::CaseInsensitive);
  tree_ = Named("foundTree", new QTreeView);
  tree_->setAccessibleName("Found lines");
  tree_->setModel(&filtered_);
  tree_->setUniformRowHeights(true);
  tree_->setExpandsOnDoubleClick(false);
  tree_->header()->resizeSection(0, kWhereWidth);
  connect(tree_, &QTreeView::activated, this, &UsesWindow::openPlace);
  return tree_;
}

QWidget* UsesWindow::makeButtonRow() {
  filter_ = MakeField("filterField", "Filter");
  state_ = Named("searchState", new QLabel);
  state_->setTextFormat(Qt::PlainText);
  state_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto* namesUsed = MakeButton("namesUsed", "&Names Used by This Block");
  auto* copy = MakeButton("copyAsText", "&Copy as Text");
  auto* again = MakeButton("searchAgain", "&Refresh (F5)");
  connect(filter_, &QLineEdit::textChanged, this, &UsesWindow::filter);
  connect(namesUsed, &QPushButton::clicked, this, &UsesWindow::showNamesOfChosen);
  connect(copy, &QPushButton::clicked, this, &UsesWindow::copyAsText);
  connect(again, &QPushButton::clicked, this, &UsesWindow::askAgain);
  auto* row = new QWidget;
  auto* layout = new QVBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(state_);
  layout->addWidget(MakeRow(filter_, namesUsed, copy, again));
  return row;
}

void UsesWindow::makeCommands() {
  AddSearchCommands(commands_, [this](SearchCommand command) {
    if (command == SearchCommand::files) return askForText({});
    if (command == SearchCommand::namesUsed) return showNamesOfChosen();
    Q_EMIT searchAsked(command);
  });
  commands_.add("showInFile", "Show in &File", "F6", [this] { showInFile(); });
  commands_.add("refresh", "&Refresh", "F5", [this] { askAgain(); });
  commands_.add("copyText", "&Copy as Text", {}, [this] { copyAsText(); });
  auto* menu = Named("foundMenu", new QMenu(this));
  constexpr const char* kNames[] = {"showInFile", "", "goToDefinition", "findUses",
                                    "namesUsed",  "", "copyText",       "refresh"};
  FillMenu(*menu, commands_, kNames);
  connect(
      new MenuButton(*tree_), &MenuButton::pressed, menu, [menu](const QPoint& at) { menu->popup(at); },
      Qt::QueuedConnection);
}

void UsesWindow::showUses(const NameHere& name) {
  name_ = name;
  follow(Subject::uses);
}

void UsesWindow::showNamesUsedBy(const ItemPlace& block) {
  block_ = block;
  follow(Subject::namesUsed);
}

// Shows what the catalogue of the moment says, and looks whether that still holds.
void UsesWindow::follow(Subject subject) {
  subject_ = subject;
  filter_->clear();
  ask();
  wanted_ = true;
  names_.refresh();
  tree_->setFocus();
}

void UsesWindow::askForText(const QString& text) {
  if (!text.isEmpty()) text_->setText(text);
  text_->setFocus();
  text_->selectAll();
}

void UsesWindow::findText() {
  const TextToFind sought{text_->text(), expression_->isChecked(), wholeWords_->isChecked(),
                          letterCase_->isChecked()};
  const QRegularExpression pattern = sought.pattern();
  if (sought.text.isEmpty()) return;
  if (!pattern.isValid())
    return showState("The expression is not well formed: " + pattern.errorString() + '.');
  sought_ = sought;
  subject_ = Subject::text;
  filter_->clear();
  ask();
}

void UsesWindow::ask() {
  found_->empty();
  definitions_ = 0;
  nowhere_.clear();
  skipped_.clear();
  full_ = false;
  // Before the further data are read, nothing can be called defined nowhere.
  asked_ = names_.isCurrent() ? names_.catalogue() : nullptr;
  place_ = asked_ == nullptr ? block_.place : StartOfBlock(*asked_, block_);
  const bool asksFiles = subject_ == Subject::text;
  progress_->setVisible(asksFiles);
  progress_->setRange(0, 0);
  find_->setText(asksFiles ? "&Stop" : "&Find");
  if (asksFiles || asked_ != nullptr) {
    finder_.start(search());
    showState();
  } else {
    finder_.stop();
    showState("Reading the names...");
  }
  showTitle();
}

void UsesWindow::askAgain() {
  if (subject_ == Subject::text) return ask();
  if (subject_ == Subject::nothing) return;
  asked_ = nullptr;
  wanted_ = true;
  names_.refresh();
}

void UsesWindow::namesChanged() {
  if (!wanted_ || subject_ == Subject::text) return;
  wanted_ = names_.isReading();  // a newer one
  if (asked_ == nullptr || asked_->files() != names_.catalogue()->files()) ask();
}

LineFinder::Search UsesWindow::search() const {
  if (subject_ == Subject::uses) return UsesOf(asked_, name_);
  if (subject_ == Subject::namesUsed) return NamesUsedAt(asked_, place_);
  return LinesWith(names_.sources(), sought_.pattern());
}

void UsesWindow::take(const FoundLines& found) {
  const bool first = found_->lineCount() == 0;
  for (const FoundLine& line : found.lines) {
    found_->add(line);
    if (line.definition) ++definitions_;
    if (line.nowhere) nowhere_ += line.branches.join('\n').toLower();
  }
  skipped_ += found.skipped;
  full_ = found.full;
  if (found.all > 0) progress_->setRange(0, found.all);
  progress_->setValue(found.done);
  expandFew();
  if (first) tree_->setCurrentIndex(filtered_.index(0, 0));
  showTitle();
}

void UsesWindow::end(bool stopped) {
  progress_->hide();
  find_->setText("&Find");
  showState(stopped ? "Stopped." : QString());
  showTitle();
}

QString UsesWindow::counted(const char* one, const char* many) const {
  const int count = found_->lineCount() - definitions_;
  if (full_) return QStringLiteral("More than %1 %2").arg(count).arg(many);
  return count == 1 ? QStringLiteral("1 %1").arg(one) : QStringLiteral("%1 %2").arg(count).arg(many);
}

void UsesWindow::showTitle() {
  QString title = QStringLiteral("Find in Files");
  if (subject_ == Subject::uses) title = counted("use", "uses") + " of " + Quoted(name_.name);
  if (subject_ == Subject::text) title = counted("line", "lines") + " with " + Quoted(sought_.text);
  if (subject_ == Subject::namesUsed) {
    const QString block = asked_ == nullptr ? block_.name : BlockCaption(*asked_, place_);
    title = counted("name", "names") + " used by " + Quoted(block.isEmpty() ? ShownPlace(place_) : block);
  }
  const bool waits = asked_ == nullptr && (subject_ == Subject::uses || subject_ == Subject::namesUsed);
  if (finder_.isRunning() || waits) title += " - searching...";
  // "[*]" means something to Qt unless it is written twice.
  setWindowTitle(title.replace(QLatin1String("[*]"), QLatin1String("[*][*]")));
}

// With what there is to say of the lines that are shown.
void UsesWindow::showState(const QString& state) {
  QStringList sentences;
  if (!state.isEmpty()) sentences += state;
  const bool done = !finder_.isRunning() && subject_ != Subject::nothing && asked_ != nullptr;
  if (done && subject_ == Subject::uses && definitions_ == 0) sentences += "No file defines this name.";
  if (!nowhere_.isEmpty()) sentences += QStringLiteral("Defined nowhere: %1.").arg(nowhere_.size());
  if (!skipped_.isEmpty()) sentences += QStringLiteral("Files that cannot be read: %1.").arg(skipped_.size());
  state_->setText(sentences.join(' '));
  state_->setToolTip(skipped_.join('\n'));
}

void UsesWindow::filter(const QString& text) {
  filtered_.setFilterFixedString(text);
  expandFew();
}

void UsesWindow::expandFew() {
  if (found_->lineCount() <= kMostExpanded || !filter_->text().isEmpty()) tree_->expandAll();
}

void UsesWindow::openPlace(const QModelIndex& index) {
  const QModelIndex row = index.siblingAtColumn(0);
  if (filtered_.rowCount(row) > 0) return tree_->setExpanded(row, !tree_->isExpanded(row));
  if (const FoundLine* line = found_->lineAt(filtered_.mapToSource(row))) places_.showPlace(line->place);
}

// Of a branch the first line that is shown.
void UsesWindow::showInFile() {
  QModelIndex row = tree_->currentIndex().siblingAtColumn(0);
  while (filtered_.rowCount(row) > 0 && row.isValid()) row = filtered_.index(0, 0, row);
  if (row.isValid()) openPlace(row);
}

void UsesWindow::showNamesOfChosen() {
  const FoundLine* line = found_->lineAt(filtered_.mapToSource(tree_->currentIndex()));
  if (line == nullptr) return;
  const ItemPlace block{kNoKind, {}, line->place};  // the line goes with the tree
  showNamesUsedBy(block);
}

void UsesWindow::copyAsText() const {
  QString text = windowTitle() + '\n';
  AddRows(text, filtered_, {}, 0);
  QGuiApplication::clipboard()->setText(text);
}

std::optional<NameHere> UsesWindow::nameHere() const {
  const FoundLine* line = found_->lineAt(filtered_.mapToSource(tree_->currentIndex()));
  return line == nullptr || line->name.name.isEmpty() ? std::nullopt : std::optional(line->name);
}

}  // namespace korvane
