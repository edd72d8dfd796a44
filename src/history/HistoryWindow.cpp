// SPDX-License-Identifier: GPL-3.0-or-later
#include "history/HistoryWindow.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QTreeWidget>
#include <QVBoxLayout>

#include <algorithm>
#include <array>
#include <memory>
#include <utility>

#include "app/EditorLauncher.h"
#include "app/ManualEditRequest.h"
#include "app/Places.h"
#include "app/Services.h"
#include "compare/ComparedTexts.h"
#include "controls/Icons.h"
#include "controls/Named.h"
#include "controls/Placement.h"
#include "controls/StoredFont.h"
#include "files/NativePath.h"
#include "history/ChangeList.h"
#include "history/ForgetDialog.h"
#include "platform/FileSaving.h"
#include "platform/FileText.h"
#include "platform/MessageBoxes.h"
#include "textview/DifferenceView.h"

namespace korvane {

namespace {

constexpr QSize kDesignSize{1100, 640};
constexpr std::array kListWidths = {170, 540, 390};  // pixels, of files, versions and changes
constexpr std::array kHeights = {200, 420};          // of the lists and of the texts

constexpr int kShortestChoice = 12;  // characters that are seen in any case
constexpr int kLongestChoice = 45;   // average characters

enum Column { timeColumn, kindColumn, sizeColumn, linesColumn };

template <typename Thing>
const Thing* At(const std::vector<Thing>& things, int index) {
  const bool inside = index >= 0 && static_cast<std::size_t>(index) < things.size();
  return inside ? &things[static_cast<std::size_t>(index)] : nullptr;
}

int RowOf(const QTreeWidget& list) {
  return list.indexOfTopLevelItem(list.currentItem());
}

QTreeWidget* NewList(const char* name, const QString& accessibleName, const QStringList& headers) {
  auto* list = Named(name, new QTreeWidget);
  list->setAccessibleName(accessibleName);
  list->setHeaderLabels(headers);
  list->setRootIsDecorated(false);
  list->setUniformRowHeights(true);
  list->setAllColumnsShowFocus(true);
  return list;
}

QString Counted(std::size_t count, const char* one) {
  return QStringLiteral("%1 %2%3").arg(count).arg(one, count == 1 ? "" : "s");
}

bool SamePath(const QString& a, const QString& b) {
  return a.compare(b, Qt::CaseInsensitive) == 0;
}

QDateTime NewestTime(const KeptVersions::File& file) {
  const std::vector<KeptVersion> versions = KeptVersions::versionsIn(file.folder);
  return versions.empty() ? QDateTime() : versions.front().time;
}

// What the manual editor has now, with one change of a pair taken back: it may have been edited since.
std::optional<std::string> TakenBack(const TextPairPtr& pair, std::size_t index, std::string_view now) {
  const ComparedTexts present(pair->texts.former(), std::string(now));
  const TextChange* change = present.find(pair->texts, pair->texts.changes()[index]);
  return change == nullptr ? std::nullopt : std::optional(present.takenBack(*change));
}

}  // namespace

HistoryWindow::HistoryWindow(const Services& services, const FileWriter& files, const KeptVersions& versions,
                             EditorLauncher& editors)
    : ToolDialog(nullptr, &services.settings),
      services_(services),
      writer_(files),
      kept_(versions),
      editors_(editors),
      fileList_(NewList("files", "Files", {"File"})),
      versionList_(NewList("versions", "Versions", {"Time", "Kind", "Size", "Lines changed"})),
      changes_(Named("changes", new ChangeList)),
      against_(Named("against", new QComboBox)),
      view_(Named("difference", new DifferenceView)),
      state_(Named("state", new QLabel)),
      spaceTaken_(Named("spaceTaken", new QLabel)),
      progress_(Named("progress", new QProgressBar)) {
  setObjectName("HistoryWindow");
  setWindowTitle("History");
  setWindowIcon(ApplicationIcon());
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  resize(kDesignSize);
  auto* layout = new QVBoxLayout(this);
  auto* split = new QSplitter(Qt::Vertical);
  split->addWidget(makeLists());
  split->addWidget(makeDifference());
  split->setSizes({kHeights[0], kHeights[1]});
  split->setStretchFactor(1, 1);
  split->setChildrenCollapsible(false);
  layout->addWidget(split, 1);
  auto* foot = new QHBoxLayout;
  layout->addLayout(foot);
  buildFoot(*foot);
  auto* bottom = new QHBoxLayout;
  layout->addLayout(bottom);
  buildBottom(*bottom);
  connectLists();
  RestorePlacement(services_.settings, *this);
  listFiles();
  fileList_->setFocus();
}

QWidget* HistoryWindow::makeLists() {
  auto* split = new QSplitter;
  for (QWidget* list : std::initializer_list<QWidget*>{fileList_, versionList_, changes_})
    split->addWidget(list);
  split->setSizes({kListWidths[0], kListWidths[1], kListWidths[2]});
  split->setChildrenCollapsible(false);
  versionList_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
  return split;
}

QWidget* HistoryWindow::makeDifference() {
  auto* area = new QWidget;
  auto* layout = new QVBoxLayout(area);
  layout->setContentsMargins({});
  auto* bar = new QHBoxLayout;
  layout->addLayout(bar);
  buildBar(*bar);
  layout->addWidget(view_, 1);
  view_->setTextFont(StoredFont(services_.settings, kTextFont, view_->textFont()));
  return area;
}

void HistoryWindow::buildBar(QBoxLayout& layout) {
  auto* label = new QLabel("Com&pare with");
  label->setBuddy(against_);
  layout.addWidget(label);
  against_->setAccessibleName("Compare with");
  against_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  against_->setMinimumContentsLength(kShortestChoice);
  against_->setMaximumWidth(kLongestChoice * fontMetrics().averageCharWidth());
  layout.addWidget(against_, 1);
  layout.addStretch();
  layout.addWidget(makeButton("previousButton", "Pre&vious Change", &HistoryWindow::previousChange));
  layout.addWidget(makeButton("nextButton", "&Next Change", &HistoryWindow::nextChange));
  auto* fold = Named("fold", new QCheckBox("Fol&d equal lines"));
  fold->setChecked(true);
  connect(fold, &QCheckBox::toggled, view_, &DifferenceView::setFolded);
  layout.addWidget(fold);
  makeKey("nextChange", "Next Change", Qt::Key_F8, &HistoryWindow::nextChange);
  makeKey("previousChange", "Previous Change", Qt::SHIFT | Qt::Key_F8, &HistoryWindow::previousChange);
  makeKey("copy", "Copy", QKeySequence::Copy, &HistoryWindow::copy);
  makeKey("lookAgain", "Look Again", Qt::Key_F5, &HistoryWindow::lookAgain);
}

void HistoryWindow::buildFoot(QBoxLayout& layout) {
  layout.addWidget(restore_ = makeButton("restore", "&Restore...", &HistoryWindow::restore));
  layout.addWidget(takeBack_ = makeButton("takeBack", "&Take This Change Back", &HistoryWindow::takeBack));
  layout.addWidget(copy_ = makeButton("copyButton", "&Copy", &HistoryWindow::copy));
  layout.addWidget(saveAs_ = makeButton("saveAs", "&Save As...", &HistoryWindow::saveAs));
  state_->setTextFormat(Qt::PlainText);
  state_->setWordWrap(true);
  layout.addWidget(state_, 1);
}

void HistoryWindow::buildBottom(QBoxLayout& layout) {
  spaceTaken_->setTextFormat(Qt::PlainText);
  spaceTaken_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  layout.addWidget(spaceTaken_, 1);
  layout.addWidget(progress_);
  layout.addWidget(cancel_ = makeButton("cancel", "Cance&l", &HistoryWindow::cancel));
  layout.addWidget(makeButton("forgetVersions", "&Forget Versions Older Than...", &HistoryWindow::forget));
}

QPushButton* HistoryWindow::makeButton(const char* name, const char* caption, void (HistoryWindow::*run)()) {
  auto* button = Named(name, new QPushButton(caption));
  button->setAutoDefault(false);
  connect(button, &QPushButton::clicked, this, run);
  return button;
}

void HistoryWindow::makeKey(const char* name, const char* caption, const QKeySequence& key,
                            void (HistoryWindow::*run)()) {
  auto* action = Named(name, new QAction(caption, this));
  action->setShortcut(key);
  addAction(action);
  connect(action, &QAction::triggered, this, run);
}

void HistoryWindow::connectLists() {
  const auto chosen = [this](void (HistoryWindow::*run)()) {
    return [this, run] {
      if (!filling_) (this->*run)();
    };
  };
  connect(fileList_, &QTreeWidget::currentItemChanged, this, chosen(&HistoryWindow::fileChosen));
  connect(versionList_, &QTreeWidget::currentItemChanged, this, chosen(&HistoryWindow::compare));
  connect(against_, &QComboBox::currentIndexChanged, this, chosen(&HistoryWindow::count));
  connect(against_, &QComboBox::currentIndexChanged, this, chosen(&HistoryWindow::compare));
  connect(changes_, &ChangeList::changeChosen, view_, &DifferenceView::goToChange);
  connect(view_, &DifferenceView::currentChangeChanged, this, [this](int change) {
    changes_->setCurrentChange(change);
    showActions();
  });
  connect(&comparer_, &Worker::finished, this, &HistoryWindow::showRunning);
  connect(&counter_, &Worker::finished, this, &HistoryWindow::showRunning);
  connect(&counter_, &Worker::progress, this, [this](int done, int all) {
    progress_->setRange(0, all);
    progress_->setValue(done);
  });
}

const KeptVersions::File* HistoryWindow::file() const {
  return At(files_, RowOf(*fileList_));
}

const FileVersion* HistoryWindow::version() const {
  return At(versions_, RowOf(*versionList_));
}

const FileVersion* HistoryWindow::against() const {
  return At(versions_, against_->currentIndex());
}

bool HistoryWindow::event(QEvent* event) {
  if (event->type() == QEvent::WindowActivate) lookAgain();
  return ToolDialog::event(event);
}

// What was chosen stays so.
void HistoryWindow::lookAgain() {
  const QString path = file() == nullptr ? QString() : file()->folder;
  const QString chosen = version() != nullptr && version()->kept ? version()->kept->file : QString();
  const std::vector<FileVersion> before = versions_;
  {
    const QScopedValueRollback filling(filling_, true);
    listFiles();
    const auto same = std::ranges::find(files_, path, &KeptVersions::File::folder);
    if (same != files_.end()) {
      fileList_->setCurrentItem(fileList_->topLevelItem(static_cast<int>(same - files_.begin())));
    }
  }
  if (file() == nullptr || file()->folder != path) return fileChosen();
  const bool unsaved = editors_.hasUnsavedText(file()->path);
  if (VersionsOf(*file(), edited(file()->path), unsaved) != before) listVersions(chosen);
}

QString HistoryWindow::shownName(const KeptVersions::File& file) const {
  if (file.path.isEmpty()) return file.name;
  const QString folder = services_.folders.game + '\\';
  const bool ofGame = file.path.startsWith(folder, Qt::CaseInsensitive);
  return ofGame ? ShownPath(file.path.mid(folder.size())) : file.path;
}

// The game folder's own files first.
void HistoryWindow::listFiles() {
  const QScopedValueRollback filling(filling_, true);
  files_ = kept_.files();
  std::erase_if(files_,
                [](const KeptVersions::File& each) { return KeptVersions::versionsIn(each.folder).empty(); });
  const auto key = [this](const KeptVersions::File& each) {
    const QString name = shownName(each);
    return std::pair(name == each.path, name.toLower());
  };
  std::ranges::sort(files_, {}, key);
  fileList_->clear();
  for (const KeptVersions::File& each : files_) {
    auto* row = new QTreeWidgetItem(fileList_, {shownName(each)});
    row->setToolTip(0, each.path);
  }
  showRoom();
  showActions();
}

void HistoryWindow::showFile(const QString& path, const QString& version) {
  listFiles();
  const auto named = [&](const KeptVersions::File& each) { return SamePath(each.path, path); };
  const auto found =
      path.isEmpty() ? std::ranges::max_element(files_, {}, NewestTime) : std::ranges::find_if(files_, named);
  const QScopedValueRollback filling(filling_, true);
  if (found == files_.end()) {
    fileList_->setCurrentItem(nullptr);
    listVersions({});
    state_->setText(path.isEmpty() ? "No version of any file is kept." : "No version of this file is kept.");
    return;
  }
  fileList_->setCurrentItem(fileList_->topLevelItem(static_cast<int>(found - files_.begin())));
  listVersions(version);
}

void HistoryWindow::showPart(const QString& path, std::string_view part) {
  showFile(path, VersionOfPart(kept_.folderOf(path), part));
}

void HistoryWindow::fileChosen() {
  listVersions({});
}

std::optional<std::string> HistoryWindow::edited(const QString& path) const {
  return path.isEmpty() ? std::nullopt : editors_.utf8InManualEditor(path);
}

// Chooses the version (native path), or the newest one that is kept.
void HistoryWindow::listVersions(const QString& chosen) {
  {
    const QScopedValueRollback filling(filling_, true);
    versionList_->clear();
    versions_.clear();
    if (const KeptVersions::File* of = file(); of != nullptr) {
      versions_ = VersionsOf(*of, edited(of->path), editors_.hasUnsavedText(of->path));
    }
    int current = 0;
    for (std::size_t i = versions_.size(); i-- > 0;) {
      const FileVersion& each = versions_[i];
      versionList_->insertTopLevelItem(
          0, new QTreeWidgetItem({TimeText(each), KindText(each), SizeText(each.size), QString()}));
      versionList_->topLevelItem(0)->setTextAlignment(sizeColumn, Qt::AlignRight | Qt::AlignVCenter);
      versionList_->topLevelItem(0)->setTextAlignment(linesColumn, Qt::AlignRight | Qt::AlignVCenter);
    }
    for (std::size_t i = versions_.size(); i-- > 0;) {
      if (versions_[i].kept && (chosen.isEmpty() || versions_[i].kept->file == chosen))
        current = static_cast<int>(i);
    }
    versionList_->setCurrentItem(versionList_->topLevelItem(current));
    listAgainst();
  }
  count();
  compare();
}

void HistoryWindow::listAgainst() {
  const QString before = against_->currentText();
  against_->clear();
  for (const FileVersion& each : versions_) against_->addItem(TitleOf(each));
  against_->setCurrentIndex(std::max(0, against_->findText(before)));
}

// How many lines of each version are others in the text that it is compared with.
void HistoryWindow::count() {
  if (against() == nullptr) return counter_.stop();
  counter_.start([this, versions = versions_, other = *against()](const std::stop_token& stop,
                                                                  Worker::Teller& tell) -> Worker::Deliver {
    const auto otherText = ReadUtf8(other);
    std::vector<int> counts;
    for (const FileVersion& each : versions) {
      if (stop.stop_requested()) return {};
      tell(counts.size(), versions.size());
      const auto text = otherText ? ReadUtf8(each) : std::nullopt;
      counts.push_back(text ? static_cast<int>(CountChangedLines(*text, *otherText, IsPart(each))) : -1);
    }
    return [this, counts] { showCounts(counts); };
  });
  showRunning();
}

void HistoryWindow::showCounts(const std::vector<int>& counts) {
  for (std::size_t i = 0; i < counts.size(); ++i) {
    if (counts[i] >= 0)
      versionList_->topLevelItem(static_cast<int>(i))->setText(linesColumn, QString::number(counts[i]));
  }
}

void HistoryWindow::compare() {
  view_->show(nullptr, {}, {});
  changes_->show(nullptr);
  showActions();
  if (version() == nullptr || against() == nullptr) {
    state_->clear();
    return comparer_.stop();
  }
  state_->setText("Comparing...");
  comparer_.start([this, former = *version(), present = *against()](const std::stop_token&,
                                                                    Worker::Teller&) -> Worker::Deliver {
    auto before = ReadUtf8(former);
    auto now = ReadUtf8(present);
    TextPairPtr pair;
    if (before && now)
      pair = std::make_shared<const TextPair>(std::move(*before), std::move(*now), IsPart(former));
    return [this, pair] { showPair(pair); };
  });
  showRunning();
}

void HistoryWindow::showPair(const TextPairPtr& pair) {
  view_->show(pair, TitleOf(*version()), TitleOf(*against()));
  changes_->show(pair == nullptr ? nullptr : &pair->texts);
  changes_->setCurrentChange(view_->currentChange());
  state_->setText(stateOf(pair));
  showActions();
}

QString HistoryWindow::stateOf(const TextPairPtr& pair) const {
  if (pair == nullptr) return "This version cannot be read.";
  const ComparedTexts& texts = pair->texts;
  if (!texts.changes().empty())
    return Counted(texts.changes().size(), "change") + ", " + Counted(texts.linesChanged(), "line");
  if (texts.former() == texts.present()) return "The texts are the same.";
  return IsPart(*version()) ? "The whole text has this part as it is." : "Only line ends differ.";
}

void HistoryWindow::showActions() {
  const FileVersion* chosen = version();
  const FileVersion* other = against();
  const bool kept = chosen != nullptr && chosen->kept;
  restore_->setEnabled(kept && !chosen->path.isEmpty());
  takeBack_->setEnabled(kept && other != nullptr && !other->kept && view_->currentChange() >= 0);
  copy_->setEnabled(chosen != nullptr);
  saveAs_->setEnabled(chosen != nullptr);
}

void HistoryWindow::showRoom() {
  const KeptVersions::Extent extent = kept_.extent();
  spaceTaken_->setText(QStringLiteral("%1 of %2 take%3 %4 in %5")
                           .arg(Counted(extent.versions, "version"), Counted(extent.files, "file"),
                                extent.versions == 1 ? "s" : "", SizeText(extent.bytes),
                                QDir::toNativeSeparators(kept_.folder())));
}

void HistoryWindow::showRunning() {
  const bool running = counter_.isRunning() || comparer_.isRunning();
  progress_->setVisible(running);
  cancel_->setVisible(running);
  if (running) progress_->setRange(0, 0);
}

void HistoryWindow::cancel() {
  counter_.stop();
  comparer_.stop();
  if (view_->pair() == nullptr) state_->setText("Cancelled.");
}

void HistoryWindow::restore() {
  const FileVersion* chosen = version();
  if (chosen == nullptr || !chosen->kept || chosen->path.isEmpty()) return;
  if (IsPart(*chosen)) return openPart(*chosen);
  const QString question = "Put this text into the manual editor?\r\n" + TitleOf(*chosen) +
                           "\r\nNothing is saved before you save it, and Undo takes it back.";
  if (services_.messages.ask({question, {"Restore", "Cancel"}}, this) != 0) return;
  const auto text = ReadUtf8(*chosen);
  if (!text) return state_->setText("This version cannot be read.");
  if (!FileExists(ProgramPath(chosen->path.toStdString())) && !editors_.utf8InManualEditor(chosen->path)) {
    return editors_.showManualEditor({.ManualEditFile = chosen->path, .text = text, .utf8 = true});
  }
  if (!editors_.rewriteInManualEditor(chosen->path, [&text](std::string_view) { return text; }))
    state_->setText("Nothing was changed: the manual editor has this text.");
}

// It never takes the place of the whole file.
void HistoryWindow::openPart(const FileVersion& version) {
  auto text = ReadUtf8(version);
  if (!text) return state_->setText("This version cannot be read.");
  editors_.showManualEditor(
      {.ManualEditFile = version.path, .ManualEditPartial = 1, .text = std::move(text), .utf8 = true});
}

void HistoryWindow::takeBack() {
  const TextPairPtr pair = view_->pair();
  const int change = view_->currentChange();
  if (pair == nullptr || change < 0 || !takeBack_->isEnabled()) return;
  const bool done = editors_.rewriteInManualEditor(version()->path, [&](std::string_view now) {
    return TakenBack(pair, static_cast<std::size_t>(change), now);
  });
  if (done) return lookAgain();
  state_->setText("Nothing was changed: the text in the manual editor does not have this any more.");
}

// What is selected, or all of the version.
void HistoryWindow::copy() {
  const QString selected = view_->selectedText();
  const auto text = selected.isEmpty() && version() != nullptr ? ReadUtf8(*version()) : std::nullopt;
  const QString copied = text ? CharactersOfUtf8(*text) : selected;
  if (!copied.isEmpty()) QGuiApplication::clipboard()->setText(copied);
}

void HistoryWindow::saveAs() {
  if (version() == nullptr) return;
  auto* dialog = new QFileDialog(this, "Save As", {}, "INI files (*.ini);;All files (*)");
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setOption(QFileDialog::ReadOnly);  // nothing is renamed, deleted or made through it
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->selectFile(file()->name);
  connect(dialog, &QFileDialog::fileSelected, this, &HistoryWindow::saveTo);
  dialog->open();
}

bool HistoryWindow::saveTo(const QString& file) {
  const auto bytes = version() == nullptr ? std::nullopt : ReadBytes(*version());
  const auto text = bytes ? ReadUtf8(*version()) : std::nullopt;
  FileSaved saved{.stop = FileSaved::Stop::failed, .reason = "This version cannot be read."};
  if (text) {
    const QString path = QString::fromStdString(ProgramText(file.toStdU16String()));
    saved = SaveFile({.path = path, .bytes = *bytes, .utf8 = *text}, writer_, kept_);
  }
  if (saved.stop == FileSaved::Stop::none) return true;
  services_.messages.show({.text = "The file was not saved: \r\n" + file + "\r\n" + saved.reason}, this);
  return false;
}

void HistoryWindow::forget() {
  auto* dialog = new ForgetDialog(kept_, this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  connect(dialog, &QDialog::accepted, this, [this, dialog] {
    KeptVersions::forget(dialog->chosen());
    lookAgain();
  });
  dialog->open();
}

void HistoryWindow::nextChange() {
  view_->goToNext();
}

void HistoryWindow::previousChange() {
  view_->goToPrevious();
}

}  // namespace korvane
