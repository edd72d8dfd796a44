// SPDX-License-Identifier: GPL-3.0-or-later
#include "problems/ProblemsWindow.h"

#include <QAction>
#include <QClipboard>
#include <QCloseEvent>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QShowEvent>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>

#include "app/CatalogueService.h"
#include "app/EditorLauncher.h"
#include "app/FurtherData.h"
#include "app/Places.h"
#include "app/Services.h"
#include "controls/Icons.h"
#include "controls/Named.h"
#include "controls/Placement.h"
#include "problems/FurtherDataDialog.h"
#include "settings/SettingsStore.h"

namespace korvane {

namespace {

constexpr QSize kDesignSize{860, 480};
constexpr int kFileWidth = 26;  // in average characters
constexpr const char* kGroupingSetting = "ProblemsGrouping";

struct GroupingChoice {
  ProblemsView::Grouping grouping;
  const char* setting;
  const char* caption;
};
constexpr std::array kGroupings = {
    GroupingChoice{ProblemsView::Grouping::file, "File", "By file"},
    GroupingChoice{ProblemsView::Grouping::code, "Code", "By code"},
};

QString Counted(int count, Level level) {
  const QByteArray name(LevelName(level).data(), static_cast<qsizetype>(LevelName(level).size()));
  return QStringLiteral("%1 %2%3").arg(count).arg(QString(name), count == 1 ? "" : "s");
}

}  // namespace

QString CountsText(const DataCheck::Result& result) {
  return Counted(result.count(Level::error), Level::error) + ", " +
         Counted(result.count(Level::warning), Level::warning);
}

ProblemsWindow::ProblemsWindow(const Services& services, CatalogueService& names, DataCheck& check,
                               PlaceLauncher& places, EditorLauncher& editors)
    : ToolDialog(nullptr, &services.settings),
      services_(services),
      settings_(services.settings),
      names_(names),
      check_(check),
      places_(places),
      editors_(editors),
      model_(new ProblemsModel(this)),
      tree_(Named("findings", new QTreeView)),
      filter_(Named("filter", new QLineEdit)),
      grouping_(Named("grouping", new QComboBox)),
      state_(Named("state", new QLabel)),
      progress_(Named("progress", new QProgressBar)) {
  setObjectName("ProblemsWindow");
  setWindowTitle("Check the Data");
  setWindowIcon(ApplicationIcon());
  resize(kDesignSize);
  auto* layout = new QVBoxLayout(this);
  auto* filters = new QHBoxLayout;
  auto* foot = new QHBoxLayout;
  layout->addLayout(filters);
  buildFilters(*filters);  // what is added later comes later by Tab too
  layout->addWidget(tree_);
  buildTree();
  layout->addLayout(foot);
  buildFoot(*foot);
  connect(&check_, &DataCheck::resultChanged, this, [this] {
    cancelled_ = false;
    showFindings();
  });
  connect(&check_, &DataCheck::runningChanged, this, &ProblemsWindow::showRunning);
  connect(&check_, &DataCheck::progress, this, &ProblemsWindow::showProgress);
  check_.setNotes(false);  // as the button says
  RestorePlacement(settings_, *this);
  showFindings();
  showRunning();
  tree_->setFocus();
}

void ProblemsWindow::buildFilters(QBoxLayout& layout) {
  filter_->setPlaceholderText("Filter");
  filter_->setAccessibleName("Filter");
  filter_->setClearButtonEnabled(true);
  layout.addWidget(filter_);
  for (const Level level : {Level::error, Level::warning, Level::note}) {
    layout.addWidget(levels_[static_cast<std::size_t>(level)] = makeLevelButton(level));
  }
  grouping_->setAccessibleName("Grouping");
  grouping_->setAccessibleDescription("Grouping");  // a reader's name of a list may be its text
  for (const GroupingChoice& choice : kGroupings) grouping_->addItem(choice.caption, choice.setting);
  grouping_->setCurrentIndex(std::max(0, grouping_->findData(settings_.GetSet(kGroupingSetting, "File"))));
  layout.addWidget(grouping_);
  layout.addWidget(makeButton("furtherData", "&Further Data...", &ProblemsWindow::askFurtherData));
  connect(filter_, &QLineEdit::textChanged, this, &ProblemsWindow::showFindings);
  connect(grouping_, &QComboBox::currentIndexChanged, this, [this] {
    settings_.SaveSet(kGroupingSetting, grouping_->currentData().toString());
    showFindings();
  });
}

// Notes are looked for only when they are asked for.
QToolButton* ProblemsWindow::makeLevelButton(Level level) {
  auto* button = new QToolButton;
  button->setObjectName(IconNameOf(level) + "s");
  button->setIcon(ThemeIcon(IconNameOf(level)));
  button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
  button->setFocusPolicy(Qt::StrongFocus);
  button->setCheckable(true);
  button->setChecked(level != Level::note);
  connect(button, &QToolButton::toggled, this, [this, level](bool shown) { levelToggled(level, shown); });
  return button;
}

void ProblemsWindow::buildTree() {
  tree_->setAccessibleName("Findings");
  tree_->setModel(model_);
  tree_->setUniformRowHeights(true);
  tree_->setSelectionMode(QAbstractItemView::ExtendedSelection);
  tree_->header()->setStretchLastSection(false);
  tree_->header()->setSectionResizeMode(ProblemsModel::text, QHeaderView::Stretch);
  tree_->header()->resizeSection(ProblemsModel::file, fontMetrics().averageCharWidth() * kFileWidth);
  tree_->header()->setSectionResizeMode(ProblemsModel::line, QHeaderView::ResizeToContents);
  makeAction("showInFile", "Show in &File", {"F6"}, &ProblemsWindow::showInFile);
  makeAction("copy", "C&opy", QKeySequence::Copy, &ProblemsWindow::copy);
  mends_ = {makeAction("ignore", "&Ignore Here", {"Ctrl+I"}, &ProblemsWindow::ignoreHere),
            makeAction("apply", "Apply &Suggestion", {"Ctrl+."}, &ProblemsWindow::applySuggestion)};
  tree_->setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(tree_, &QTreeView::activated, this, &ProblemsWindow::openPlace);
  connect(tree_, &QTreeView::collapsed, this, [this](const QModelIndex& group) {
    collapsed_ += group.data(ProblemsModel::titleRole).toString();
  });
  connect(tree_, &QTreeView::expanded, this, [this](const QModelIndex& group) {
    collapsed_ -= group.data(ProblemsModel::titleRole).toString();
  });
  connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this,
          [this](const QModelIndex& current) {
            if (const Finding* finding = model_->finding(current)) selected_ = *finding;
          });
  connect(tree_->selectionModel(), &QItemSelectionModel::selectionChanged, this,
          &ProblemsWindow::showActions);
}

QAction* ProblemsWindow::makeAction(const char* name, const char* caption, const QKeySequence& key,
                                    void (ProblemsWindow::*run)()) {
  auto* action = Named(name, new QAction(caption, tree_));
  action->setShortcut(key);
  action->setShortcutContext(Qt::WidgetShortcut);
  tree_->addAction(action);
  connect(action, &QAction::triggered, this, run);
  return action;
}

QPushButton* ProblemsWindow::makeButton(const char* name, const char* caption,
                                        void (ProblemsWindow::*run)()) {
  auto* button = Named(name, new QPushButton(caption));
  button->setAutoDefault(false);  // Enter belongs to the findings
  connect(button, &QPushButton::clicked, this, run);
  return button;
}

void ProblemsWindow::buildFoot(QBoxLayout& layout) {
  state_->setTextFormat(Qt::PlainText);
  layout.addWidget(state_, 1);
  progress_->setAccessibleName("Progress");
  layout.addWidget(progress_);
  layout.addWidget(cancel_ = makeButton("cancel", "Cance&l", &ProblemsWindow::cancelCheck));
  layout.addWidget(again_ = makeButton("again", "&Check Again", &ProblemsWindow::startCheck));
  layout.addWidget(makeButton("copyButton", "C&opy", &ProblemsWindow::copy));
  mendButtons_ = {makeButton("ignoreButton", "&Ignore Here", &ProblemsWindow::ignoreHere),
                  makeButton("applyButton", "Apply &Suggestion", &ProblemsWindow::applySuggestion)};
  for (QPushButton* button : mendButtons_) layout.addWidget(button);
  showActions();
}

void ProblemsWindow::showEvent(QShowEvent* event) {
  ToolDialog::showEvent(event);
  if (event->spontaneous()) return;
  check_.follow(true);
  if (!check_.isRunning()) check_.start();
}

void ProblemsWindow::closeEvent(QCloseEvent* event) {
  check_.follow(false);
  ToolDialog::closeEvent(event);
}

void ProblemsWindow::cancelCheck() {
  cancelled_ = true;
  check_.cancel();
}

// A group stands for all of its findings.
void ProblemsWindow::copy() {
  QStringList lines;
  QModelIndexList rows = tree_->selectionModel()->selectedRows();
  std::ranges::sort(rows, {}, [this](const QModelIndex& row) { return tree_->visualRect(row).top(); });
  const auto add = [&](const QModelIndex& row) {
    const Finding* finding = model_->finding(row);
    if (finding != nullptr && !lines.contains(LineOf(*finding))) lines += LineOf(*finding);
  };
  for (const QModelIndex& row : rows) {
    add(row);
    for (int i = 0; i < model_->rowCount(row); ++i) add(model_->index(i, 0, row));
  }
  if (!lines.isEmpty()) QGuiApplication::clipboard()->setText(lines.join('\n'));
}

// Those of a selected group too; only those in one file, for they go together.
Findings ProblemsWindow::selectedFindings() const {
  Findings findings;
  const auto add = [&](const QModelIndex& row) {
    const Finding* finding = model_->finding(row);
    if (finding != nullptr && (findings.empty() || findings.front().file == finding->file))
      findings.push_back(*finding);
  };
  const QItemSelectionModel& selection = *tree_->selectionModel();
  const QModelIndex current = tree_->currentIndex().siblingAtColumn(0);
  if (selection.isSelected(current)) add(current);
  for (const QModelIndex& row : selection.selectedRows()) {
    if (row != current) add(row);
    for (int i = 0; i < model_->rowCount(row); ++i) add(model_->index(i, 0, row));
  }
  return findings;
}

void ProblemsWindow::showActions() {
  const Findings findings = selectedFindings();
  const bool hasSuggestion =
      std::ranges::any_of(findings, [](const Finding& each) { return !each.suggestion.empty(); });
  const auto enable = [this](Mend mend, bool enabled) {
    mends_[static_cast<std::size_t>(mend)]->setEnabled(enabled);
    if (QPushButton* button = mendButtons_[static_cast<std::size_t>(mend)]) button->setEnabled(enabled);
  };
  enable(Mend::ignore, !findings.empty());
  enable(Mend::suggest, hasSuggestion);
}

// The edits stay unsaved in the manual editor; the findings go when they are saved.
void ProblemsWindow::mend(Mend mend) {
  Findings findings = selectedFindings();
  if (findings.empty()) return;
  const QString file = services_.folders.game + '\\' + FilePathOf(findings.front());
  if (!editors_.editInManualEditor(file, PlanOf(mend, std::move(findings), check_.result()->checker)))
    state_->setText("Nothing was changed: the text in the manual editor does not have this any more.");
}

void ProblemsWindow::askFurtherData() {
  auto* dialog =
      new FurtherDataDialog(FurtherDataOf(settings_, services_.folders.game), services_.messages, this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  connect(dialog, &QDialog::accepted, this, [this, dialog] { takeFurtherData(dialog->paths()); });
  dialog->open();
}

void ProblemsWindow::takeFurtherData(const QStringList& paths) {
  SaveFurtherData(settings_, services_.folders.game, paths);
  names_.setFurtherData(paths);
  check_.start();
}

// Of a group the first finding.
void ProblemsWindow::showInFile() {
  const QModelIndex current = tree_->currentIndex().siblingAtColumn(0);
  openPlace(model_->rowCount(current) > 0 ? model_->index(0, 0, current) : current);
}

void ProblemsWindow::openPlace(const QModelIndex& index) {
  const Finding* finding = model_->finding(index);
  if (finding == nullptr) return;
  places_.showPlace({FilePathOf(*finding), {}, finding->line, std::max(finding->column, 1), finding->length});
}

void ProblemsWindow::levelToggled(Level level, bool shown) {
  if (level == Level::note) {
    check_.setNotes(shown);
    if (shown && (check_.result() == nullptr || !check_.result()->withNotes)) check_.start();
  }
  showFindings();
}

ProblemsView ProblemsWindow::view() const {
  ProblemsView view{kGroupings[static_cast<std::size_t>(grouping_->currentIndex())].grouping, {}, {}};
  for (std::size_t i = 0; i < levels_.size(); ++i) view.levels[i] = levels_[i]->isChecked();
  view.filter = filter_->text().trimmed();
  return view;
}

void ProblemsWindow::showFindings() {
  const QModelIndex before = selected_ ? model_->indexOf(*selected_) : QModelIndex();
  const int findingsBefore = before.isValid() ? model_->findingsBefore(before) : 0;
  model_->show(check_.result(), view());
  tree_->expandAll();
  for (int group = 0; group < model_->rowCount(); ++group) {
    tree_->setFirstColumnSpanned(group, {}, true);
    const QModelIndex index = model_->index(group, 0);
    if (collapsed_.contains(index.data(ProblemsModel::titleRole).toString())) tree_->collapse(index);
  }
  restoreSelection(findingsBefore);
  showActions();
  showCounts();
  showRunning();
}

// What is selected stays so while it is hidden. A finding that is mended hands on to its neighbour, the one
// with as many others before it.
void ProblemsWindow::restoreSelection(int before) {
  const DataCheck::ResultPtr& result = check_.result();
  const bool mended = !selected_ || (result != nullptr && NearestOf(result->findings, *selected_) == nullptr);
  const QModelIndex index =
      mended ? model_->findingBehind(std::min(before, model_->shown() - 1)) : model_->indexOf(*selected_);
  if (!index.isValid() || !tree_->isExpanded(index.parent())) return;
  // Whatever key is pressed at the moment.
  tree_->selectionModel()->setCurrentIndex(index,
                                           QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
  tree_->scrollTo(index);
}

void ProblemsWindow::showCounts() {
  const DataCheck::ResultPtr& result = check_.result();
  for (const Level level : {Level::error, Level::warning, Level::note}) {
    const bool known = result != nullptr && (level != Level::note || result->withNotes);
    const QString plural = Counted(2, level).mid(2);
    levels_[static_cast<std::size_t>(level)]->setText(known ? Counted(result->count(level), level)
                                                            : plural.at(0).toUpper() + plural.mid(1));
  }
}

void ProblemsWindow::showRunning() {
  const bool running = check_.isRunning();
  progress_->setVisible(running);
  cancel_->setVisible(running);
  again_->setVisible(!running);
  if (running) progress_->setRange(0, 0);
  state_->setText(running ? QStringLiteral("Checking...") : summary());
}

void ProblemsWindow::showProgress(int done, int all) {
  progress_->setRange(0, all);
  progress_->setValue(done);
}

QString ProblemsWindow::summary() const {
  const DataCheck::ResultPtr& result = check_.result();
  if (result == nullptr) return cancelled_ ? "Cancelled." : "Not checked yet.";
  const int all = static_cast<int>(result->findings.size());
  const QString shown = all == 0 ? QStringLiteral("Nothing found.")
                                 : QStringLiteral("%1 of %2 findings shown.").arg(model_->shown()).arg(all);
  return cancelled_ ? "Cancelled; this is what was found before. " + shown : shown;
}

}  // namespace korvane
