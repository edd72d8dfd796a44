// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/CompareWindow.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QProgressBar>
#include <QPushButton>
#include <QShowEvent>
#include <QSplitter>
#include <QToolButton>
#include <QTreeView>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <memory>
#include <sstream>
#include <utility>

#include "app/Services.h"
#include "compare/ExportFormats.h"
#include "compare/LineDifference.h"
#include "controls/Icons.h"
#include "controls/Named.h"
#include "controls/Placement.h"
#include "controls/ShownText.h"
#include "controls/StoredFont.h"
#include "files/NativePath.h"
#include "platform/FileText.h"
#include "platform/FileWriter.h"
#include "platform/MessageBoxes.h"
#include "settings/SettingsStore.h"
#include "textview/DifferenceView.h"

namespace korvane {

namespace {

constexpr QSize kDesignSize{1100, 640};
constexpr std::array kHeights = {280, 300};                // pixels, of the tree and of the texts
constexpr std::array kColumnWidths = {300, 80, 240, 240};  // of all but the last one
constexpr int kMostExpanded = 500;                         // items whose kinds are opened at once
constexpr const char* kTextSetting = "CompareText";

QString ProgramPathOf(const QString& native) {
  return QString::fromStdString(ProgramText(native.toStdU16String()));
}

QString StateName(ItemState state) {
  return QString::fromUtf8(kItemStates[static_cast<std::size_t>(state)].data());
}

// The lines of an item, in UTF-8; empty when it is not there or the file has changed meanwhile.
std::string TextOfItem(const std::vector<SourceFile>& files, const ItemPosition& position) {
  if (position.line == 0) return {};
  const auto text = ReadSourceText(files[position.file]);
  const auto lines = text ? LinesOf(*text) : std::vector<std::string_view>();
  std::string item;
  for (std::size_t i = position.line - 1; i < std::min<std::size_t>(position.lastLine, lines.size()); ++i)
    (item += lines[i]) += "\r\n";
  return Utf8OfFile(item).toStdString();
}

// Nothing of the original is the game folder's own loose file.
FilePlace OriginalPlace(const SourceFile& file, std::uint32_t line) {
  FilePlace place = PlaceOf(file, line, 1, 0);
  place.archive = QString::fromStdString(file.container);
  return place;
}

// The line of a key in an item's text, counted there from 1; 0: it has none.
std::uint32_t LineInItem(std::uint32_t line, const ItemPosition& position) {
  return line < position.line ? 0 : line - position.line + 1;
}

}  // namespace

CompareWindow::CompareWindow(const Services& services, const FileWriter& files, DataComparison& comparison,
                             PlaceLauncher& places)
    : ToolDialog(nullptr, &services.settings),
      services_(services),
      writer_(files),
      comparison_(comparison),
      places_(places),
      model_(new ComparisonModel(this)),
      tree_(Named("items", new QTreeView)),
      filter_(Named("filter", new QLineEdit)),
      text_(Named("text", new QCheckBox("Order, spacing and co&mments too"))),
      view_(Named("difference", new DifferenceView)),
      original_(Named("original", new QLabel)),
      state_(Named("state", new QLabel)),
      progress_(Named("progress", new QProgressBar)) {
  setObjectName("CompareWindow");
  setWindowTitle("Compare with the Original");
  setWindowIcon(ApplicationIcon());
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  resize(kDesignSize);
  auto* layout = new QVBoxLayout(this);
  buildHead(*layout);
  buildFilters(*layout);
  buildTree();
  auto* split = new QSplitter(Qt::Vertical);
  split->addWidget(tree_);
  split->addWidget(makeTexts());
  split->setSizes({kHeights[0], kHeights[1]});
  split->setChildrenCollapsible(false);
  layout->addWidget(split, 1);
  buildFoot(*layout);
  view_->setTextFont(StoredFont(services_.settings, kTextFont, view_->textFont()));
  connectComparison();
  RestorePlacement(services_.settings, *this);
  showOriginal();
  showResult();
  tree_->setFocus();
}

void CompareWindow::connectComparison() {
  connect(&comparison_, &DataComparison::resultChanged, this, &CompareWindow::showResult);
  connect(&comparison_, &DataComparison::runningChanged, this, &CompareWindow::showRunning);
  connect(&comparison_, &DataComparison::progress, this, [this](int done, int all) {
    progress_->setRange(0, all);
    progress_->setValue(done);
  });
}

void CompareWindow::buildHead(QBoxLayout& layout) {
  auto* row = new QHBoxLayout;
  layout.addLayout(row);
  original_->setTextFormat(Qt::PlainText);
  original_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  row->addWidget(original_, 1);
  row->addWidget(makeOriginalButton());
  progress_->setAccessibleName("Progress");
  row->addWidget(progress_);
  row->addWidget(cancel_ = makeButton("cancel", "Cance&l", &CompareWindow::cancel));
  row->addWidget(again_ = makeButton("again", "Compare &Again", &CompareWindow::compareAgain));
}

QPushButton* CompareWindow::makeOriginalButton() {
  auto* button = Named("chooseOriginal", new QPushButton("&Original"));
  button->setAutoDefault(false);
  auto* menu = new QMenu(button);
  connect(Named("gameArchives", menu->addAction("The &Game's Archives")), &QAction::triggered, this,
          [this] { chooseOriginal({}); });
  connect(Named("chooseFolder", menu->addAction("A &Folder...")), &QAction::triggered, this,
          &CompareWindow::askFolder);
  connect(Named("chooseArchive", menu->addAction("An &Archive...")), &QAction::triggered, this,
          &CompareWindow::askArchive);
  button->setMenu(menu);
  return button;
}

void CompareWindow::buildFilters(QBoxLayout& layout) {
  auto* row = new QHBoxLayout;
  layout.addLayout(row);
  filter_->setPlaceholderText("Filter");
  filter_->setAccessibleName("Filter");
  filter_->setClearButtonEnabled(true);
  row->addWidget(filter_, 1);
  for (std::size_t i = 0; i < states_.size(); ++i)
    row->addWidget(states_[i] = makeStateButton(static_cast<ItemState>(i)));
  text_->setChecked(services_.settings.GetSet(kTextSetting, "False") == "True");
  row->addWidget(text_);
  connect(filter_, &QLineEdit::textChanged, this, &CompareWindow::showResult);
  connect(text_, &QCheckBox::toggled, this, [this](bool wanted) {
    services_.settings.SaveSet(kTextSetting, wanted ? "True" : "False");
    compareAgain();
  });
}

QToolButton* CompareWindow::makeStateButton(ItemState state) {
  auto* button = new QToolButton;
  button->setObjectName(StateName(state));
  button->setFocusPolicy(Qt::StrongFocus);
  button->setCheckable(true);
  button->setChecked(true);
  connect(button, &QToolButton::toggled, this, &CompareWindow::showResult);
  return button;
}

void CompareWindow::buildTree() {
  tree_->setAccessibleName("Items that differ");
  tree_->setModel(model_);
  tree_->setUniformRowHeights(true);
  tree_->setAllColumnsShowFocus(true);
  for (std::size_t i = 0; i < kColumnWidths.size(); ++i)
    tree_->header()->resizeSection(static_cast<int>(i), kColumnWidths[i]);
  connect(tree_->selectionModel(), &QItemSelectionModel::currentChanged, this, &CompareWindow::showItem);
  connect(tree_, &QTreeView::activated, this, &CompareWindow::goToText);
  makeKey("nextChange", "Next Change", Qt::Key_F8, &CompareWindow::nextChange);
  makeKey("previousChange", "Previous Change", Qt::SHIFT | Qt::Key_F8, &CompareWindow::previousChange);
  makeKey("copy", "Copy", QKeySequence::Copy, &CompareWindow::copy);
  makeKey("compareAgain", "Compare Again", Qt::Key_F5, &CompareWindow::compareAgain);
}

QWidget* CompareWindow::makeTexts() {
  auto* texts = new QWidget;
  auto* layout = new QVBoxLayout(texts);
  layout->setContentsMargins({});
  auto* bar = new QHBoxLayout;
  layout->addLayout(bar);
  layout->addWidget(view_, 1);
  bar->addWidget(inOriginal_ =
                     makeButton("inOriginal", "Show in the Or&iginal", &CompareWindow::showInOriginal));
  bar->addStretch(1);
  bar->addWidget(makeButton("previousButton", "Pre&vious Change", &CompareWindow::previousChange));
  bar->addWidget(makeButton("nextButton", "&Next Change", &CompareWindow::nextChange));
  bar->addStretch(1);
  bar->addWidget(inModification_ = makeButton("inModification", "&Show in the Modification",
                                              &CompareWindow::showInModification));
  return texts;
}

void CompareWindow::buildFoot(QBoxLayout& layout) {
  auto* row = new QHBoxLayout;
  layout.addLayout(row);
  state_->setTextFormat(Qt::PlainText);
  state_->setWordWrap(true);
  row->addWidget(state_, 1);
  auto* fold = Named("fold", new QCheckBox("Fol&d equal lines"));
  fold->setChecked(true);
  connect(fold, &QCheckBox::toggled, view_, &DifferenceView::setFolded);
  row->addWidget(fold);
  row->addWidget(makeButton("copyButton", "&Copy", &CompareWindow::copy));
  row->addWidget(export_ = makeExportButton());
}

QPushButton* CompareWindow::makeExportButton() {
  auto* button = Named("export", new QPushButton("&Export"));
  button->setAutoDefault(false);
  auto* menu = new QMenu(button);
  for (const ExportFormat& format : ExportFormats()) {
    const QString caption =
        QString::fromUtf8(format.caption.data(), static_cast<qsizetype>(format.caption.size()));
    connect(menu->addAction('&' + caption + "..."), &QAction::triggered, this,
            [this, &format] { askExport(format); });
  }
  button->setMenu(menu);
  return button;
}

QPushButton* CompareWindow::makeButton(const char* name, const char* caption, void (CompareWindow::*run)()) {
  auto* button = Named(name, new QPushButton(caption));
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, run);
  return button;
}

void CompareWindow::makeKey(const char* name, const char* caption, const QKeySequence& key,
                            void (CompareWindow::*run)()) {
  auto* action = Named(name, new QAction(caption, this));
  action->setShortcut(key);
  addAction(action);
  connect(action, &QAction::triggered, this, run);
}

void CompareWindow::showEvent(QShowEvent* event) {
  ToolDialog::showEvent(event);
  if (!event->spontaneous() && comparison_.result() == nullptr && !comparison_.isRunning()) compareAgain();
}

void CompareWindow::compareAgain() {
  const QString reason = comparison_.whyNoOriginal();
  if (!reason.isEmpty()) return state_->setText(reason);
  cancelled_ = false;
  comparison_.start(text_->isChecked());
}

void CompareWindow::cancel() {
  cancelled_ = true;
  comparison_.cancel();
}

void CompareWindow::askFolder() {
  auto* dialog = new QFileDialog(this, "The Original");
  dialog->setFileMode(QFileDialog::Directory);
  dialog->setOption(QFileDialog::ShowDirsOnly);
  choose(*dialog);
}

void CompareWindow::askArchive() {
  auto* dialog = new QFileDialog(this, "The Original", {}, "Archives (*.big *.BIG *.Big)");
  dialog->setFileMode(QFileDialog::ExistingFile);
  choose(*dialog);
}

void CompareWindow::choose(QFileDialog& dialog) {
  dialog.setAttribute(Qt::WA_DeleteOnClose);
  dialog.setOption(QFileDialog::ReadOnly);  // nothing is renamed, deleted or made through it
  connect(&dialog, &QFileDialog::fileSelected, this,
          [this](const QString& native) { chooseOriginal(ProgramPathOf(native)); });
  dialog.open();
}

void CompareWindow::chooseOriginal(const QString& path) {
  const std::string reason = path.isEmpty() ? std::string() : WhyNoDataSource(path.toStdString());
  if (!reason.empty()) {
    const QString text =
        "This cannot be compared: \r\n" + path + "\r\n" + QString::fromStdString(reason) + '.';
    services_.messages.show({.text = text}, this);
    return;
  }
  comparison_.setOriginal(path);
  showOriginal();
  compareAgain();
}

void CompareWindow::showOriginal() {
  const QString chosen = comparison_.original();
  original_->setText("The original: " + (chosen.isEmpty() ? "the archives in the game folder" : chosen));
  original_->setToolTip(chosen);
}

void CompareWindow::showResult() {
  ComparisonView view{{}, filter_->text().trimmed()};
  for (std::size_t i = 0; i < states_.size(); ++i) view.states[i] = states_[i]->isChecked();
  model_->show(comparison_.result(), view);
  if (model_->shown() <= kMostExpanded) {
    for (int kind = 0; kind < model_->rowCount(); ++kind) tree_->expand(model_->index(kind, 0));
  }
  shown_ = nullptr;
  reader_.stop();
  view_->show(nullptr, {}, {});
  showCounts();
  showActions();
  showRunning();
}

void CompareWindow::showCounts() {
  const DataComparison::ResultPtr& result = comparison_.result();
  for (std::size_t i = 0; i < states_.size(); ++i) {
    const QString name = StateName(static_cast<ItemState>(i));
    const auto count = result == nullptr
                           ? 0
                           : std::ranges::count(result->items, static_cast<ItemState>(i), &ItemChange::state);
    states_[i]->setText(result == nullptr ? name : QStringLiteral("%1 %2").arg(count).arg(name));
  }
}

void CompareWindow::showRunning() {
  const bool running = comparison_.isRunning();
  progress_->setVisible(running);
  cancel_->setVisible(running);
  again_->setVisible(!running);
  if (running) progress_->setRange(0, 0);
  state_->setText(running ? QStringLiteral("Comparing...") : summary());
  state_->setToolTip(skippedFiles());
}

QString CompareWindow::summary() const {
  const DataComparison::ResultPtr& result = comparison_.result();
  if (result == nullptr) return cancelled_ ? "Cancelled." : "Not compared yet.";
  QString text = result->items.empty()
                     ? QStringLiteral("Nothing differs.")
                     : QStringLiteral("%1 of %2 items shown.").arg(model_->shown()).arg(result->items.size());
  if (cancelled_) text = "Cancelled; this is what was found before. " + text;
  const std::size_t skipped = result->skipped.size();
  if (skipped == 0) return text;
  return text + QStringLiteral(" %1 file%2 could not be read.").arg(skipped).arg(skipped == 1 ? "" : "s");
}

QString CompareWindow::skippedFiles() const {
  QStringList lines;
  if (comparison_.result() == nullptr) return {};
  for (const SkippedFile& file : comparison_.result()->skipped)
    lines += QString::fromStdString(file.path) + ": " + QString::fromStdString(file.reason);
  return PlainToolTip(ShownText(lines.join('\n')));
}

// The texts are read in a worker. A key of the item that is shown is only gone to.
void CompareWindow::showItem() {
  showActions();
  const ItemChange* item = model_->itemAt(tree_->currentIndex());
  if (item == shown_ && item != nullptr) return goToKey();
  shown_ = item;
  if (item == nullptr) {
    view_->show(nullptr, {}, {});
    return reader_.stop();
  }
  reader_.start([this, item, result = comparison_.result()](const std::stop_token&,
                                                            Worker::Teller&) -> Worker::Deliver {
    auto pair = std::make_shared<TextPair>(TextOfItem(result->formerFiles, item->former),
                                           TextOfItem(result->presentFiles, item->present));
    pair->formerFirst = std::max(item->former.line, 1U);
    pair->presentFirst = std::max(item->present.line, 1U);
    return [this, item, pair, result] {
      if (shown_ == item) showPair(pair);
    };
  });
}

void CompareWindow::showPair(const TextPairPtr& pair) {
  const Comparison& result = *comparison_.result();
  const ItemPosition& before = shown_->former;
  const ItemPosition& now = shown_->present;
  const QString nowhere = "Not there";
  view_->show(
      pair,
      before.line == 0 ? nowhere : ShownPlace(OriginalPlace(result.formerFiles[before.file], before.line)),
      now.line == 0 ? nowhere : ShownPlace(PlaceOf(result.presentFiles[now.file], now.line, 1, 0)));
  goToKey();
}

void CompareWindow::goToKey() {
  const KeyChange* key = model_->keyAt(tree_->currentIndex());
  if (key == nullptr || shown_ == nullptr || view_->pair() == nullptr) return;
  view_->goToLines(LineInItem(key->formerLine, shown_->former),
                   LineInItem(key->presentLine, shown_->present));
}

void CompareWindow::goToText() {
  if (model_->itemAt(tree_->currentIndex()) != nullptr) view_->setFocus();
}

void CompareWindow::showActions() {
  const ItemChange* item = model_->itemAt(tree_->currentIndex());
  inOriginal_->setEnabled(item != nullptr && item->former.line != 0);
  inModification_->setEnabled(item != nullptr && item->present.line != 0);
  export_->setEnabled(comparison_.result() != nullptr);
}

// At the key where one is chosen, else at the item.
void CompareWindow::showInOriginal() {
  const ItemChange* item = model_->itemAt(tree_->currentIndex());
  const KeyChange* key = model_->keyAt(tree_->currentIndex());
  if (item == nullptr || item->former.line == 0) return;
  const std::uint32_t line = key != nullptr && key->formerLine != 0 ? key->formerLine : item->former.line;
  places_.showPlace(OriginalPlace(comparison_.result()->formerFiles[item->former.file], line));
}

void CompareWindow::showInModification() {
  const ItemChange* item = model_->itemAt(tree_->currentIndex());
  const KeyChange* key = model_->keyAt(tree_->currentIndex());
  if (item == nullptr || item->present.line == 0) return;
  const std::uint32_t line = key != nullptr && key->presentLine != 0 ? key->presentLine : item->present.line;
  places_.showPlace(PlaceOf(comparison_.result()->presentFiles[item->present.file], line, 1, 0));
}

// What is selected in the texts, or the chosen row as release notes say it.
void CompareWindow::copy() {
  QString text = view_->selectedText();
  const QModelIndex row = tree_->currentIndex();
  if (text.isEmpty()) {
    QStringList columns;
    for (int column = 0; column < model_->columnCount(); ++column)
      columns += row.siblingAtColumn(column).data().toString();
    text = columns.join('\t');
  }
  if (row.isValid() && !text.isEmpty()) QGuiApplication::clipboard()->setText(text);
}

void CompareWindow::askExport(const ExportFormat& format) {
  auto* dialog = new QFileDialog(this, "Export");
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setOption(QFileDialog::ReadOnly);  // nothing is renamed, deleted or made through it
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->selectFile("CHANGES" +
                     QString::fromUtf8(format.ending.data(), static_cast<qsizetype>(format.ending.size())));
  connect(dialog, &QFileDialog::fileSelected, this,
          [this, &format](const QString& file) { exportTo(file, format); });
  dialog->open();
}

bool CompareWindow::exportTo(const QString& file, const ExportFormat& format) {
  if (comparison_.result() == nullptr) return false;
  std::ostringstream text;
  format.write(text, *comparison_.result());
  const QString reason = writer_.replace(ProgramPathOf(file), text.view());
  if (reason.isEmpty()) return true;
  services_.messages.show({.text = "The file was not saved: \r\n" + file + "\r\n" + reason}, this);
  return false;
}

void CompareWindow::nextChange() {
  view_->goToNext();
}

void CompareWindow::previousChange() {
  view_->goToPrevious();
}

}  // namespace korvane
