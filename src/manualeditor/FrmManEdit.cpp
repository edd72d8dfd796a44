// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/FrmManEdit.h"

#include <QAction>
#include <QCloseEvent>
#include <QDateTime>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QStatusBar>
#include <QTimer>
#include <QToolBar>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>
#include <vector>

#include "app/CatalogueService.h"
#include "app/Places.h"
#include "app/SearchCommands.h"
#include "app/Services.h"
#include "controls/FontDialog.h"
#include "controls/Icons.h"
#include "controls/Named.h"
#include "controls/NoticeBar.h"
#include "controls/Placement.h"
#include "controls/StoredFont.h"
#include "manualeditor/BlockDuplication.h"
#include "manualeditor/BlockOutline.h"
#include "manualeditor/BlockPanel.h"
#include "manualeditor/BlockPath.h"
#include "manualeditor/Completion.h"
#include "manualeditor/FileDrops.h"
#include "manualeditor/FindBar.h"
#include "manualeditor/FrmReplace.h"
#include "manualeditor/IniTextEdit.h"
#include "manualeditor/LiveFindings.h"
#include "manualeditor/ManualEditCommands.h"
#include "manualeditor/MoveCommands.h"
#include "manualeditor/NamesInText.h"
#include "manualeditor/OpenText.h"
#include "manualeditor/RecentFiles.h"
#include "manualeditor/TextCommands.h"
#include "manualeditor/TextTabs.h"
#include "manualeditor/TextTips.h"
#include "manualeditor/UserFile.h"
#include "platform/EventYield.h"
#include "platform/MessageBoxes.h"
#include "settings/SettingsStore.h"

namespace korvane {

namespace {

const QString kCaption = QStringLiteral("Manual Editor");
constexpr int kClockInterval = 500;  // milliseconds
constexpr int kOfCopy = 10;          // the notice of a duplicated block, behind those of the text
constexpr int kBarsHeight = 48;      // pixels of the toolbar and the status bar together, where they fit
constexpr int kStatusBarHeight = 22;
constexpr QSize kDesignSize(900, 620);
constexpr QSize kLeastSize(480, 320);
constexpr QSize kIconSize(16, 16);

constexpr int kFindNotices = 100;  // behind those of the text

// Behind the entries of the text's own context menu.
constexpr const char* kNameCommands[] = {"", "goToDefinition", "findUses", "namesUsed"};

enum Panel { linePanel, statePanel, timePanel, datePanel, filePanel };
struct PanelWidth {
  const char* longest;  // longest text the panel must fit
  int stretch;
};
constexpr std::array kPanelWidths = {PanelWidth{"Line 100000 of 100000", 3}, PanelWidth{"Loading...", 2},
                                     PanelWidth{"Time: 00:00:00 AM", 3}, PanelWidth{"Date: 00 Mmm 0000", 3},
                                     PanelWidth{"", 10}};

// One above the other, without a gap.
QWidget* Stacked(QWidget* above, QWidget* below) {
  auto* both = new QWidget;
  auto* layout = new QVBoxLayout(both);
  layout->setContentsMargins({});
  layout->setSpacing(0);
  layout->addWidget(above);
  layout->addWidget(below, 1);
  return both;
}

// Where the new text stands; that of a new line behind the line end that it brings.
ManualEditPlace PlaceOfNew(const TextEdit& edit) {
  constexpr std::string_view kLineEnd = "\r\n";
  std::string_view text = edit.text;
  if (!text.starts_with(kLineEnd)) return {edit.line, edit.column, static_cast<int>(text.size())};
  text.remove_prefix(kLineEnd.size());
  return {edit.line + 1, 1, static_cast<int>(text.size())};
}

}  // namespace

FrmManEdit::FrmManEdit(const Services& services, const FileWriter& files, const KeptVersions& versions,
                       FontChooser& fonts, CatalogueService& names)
    : services_(services),
      fonts_(fonts),
      TB1_(addToolBar("Toolbar")),
      TxtManEdit_(new IniTextEdit(this)),
      outline_(new BlockOutline(*TxtManEdit_)),
      find_(new FindBar(*TxtManEdit_, *TB1_)),
      tabs_(new TextTabs(*TxtManEdit_,
                         [this, &files, &versions](QObject* owner) {
                           auto* text = new OpenText(owner, *TxtManEdit_, services_, files, versions);
                           // The save that was refused ends first.
                           connect(text, &OpenText::administratorAsked, this, &FrmManEdit::administratorAsked,
                                   Qt::QueuedConnection);
                           return text;
                         })),
      findings_(new LiveFindings(*TxtManEdit_, names)),
      completion_(new Completion(*TxtManEdit_, *outline_, names)),
      duplication_(new BlockDuplication(*TxtManEdit_, *outline_, names)),
      tips_(new TextTips(*TxtManEdit_, *outline_, names)),
      notices_(new NoticeBar),
      replace_(new FrmReplace(*TxtManEdit_, this)),
      Timer1_(new QTimer(this)) {
  setObjectName("FrmManEdit");
  setWindowTitle(kCaption);
  setWindowIcon(ApplicationIcon());
  TxtManEdit_->setObjectName("TxtManEdit");
  setCentralWidget(NoticeBar::below(Stacked(tabs_, TxtManEdit_), notices_));
  buildCommands();
  buildStatusBar();
  buildToolBar();
  setMinimumSize(kLeastSize);
  resize(kDesignSize);
  connect(TxtManEdit_, &IniTextEdit::cursorMayHaveMoved, this, &FrmManEdit::showLine);
  connect(TxtManEdit_, &IniTextEdit::menuAsked, this,
          [this](QMenu& menu) { FillMenu(menu, commands_, kNameCommands); });
  connect(TxtManEdit_, &IniTextEdit::modificationChanged, this, &FrmManEdit::showTitle);
  connect(tabs_, &TextTabs::otherShown, this, &FrmManEdit::showOther);
  connect(tabs_, &TextTabs::toldOf, this, &FrmManEdit::tell);
  connect(tabs_, &TextTabs::loadedAnew, this, &FrmManEdit::showLine);
  connect(tabs_, &TextTabs::lastClosed, this, &FrmManEdit::close);
  connect(find_, &FindBar::said, notices_, [this](const QString& sentence) {
    notices_->tell(kFindNotices, sentence.isEmpty() ? std::vector<Notice>() : std::vector{Notice(sentence)});
  });
  connect(duplication_, &BlockDuplication::said, notices_, [this](const QString& sentence) {
    notices_->tell(kOfCopy, sentence.isEmpty() ? std::vector<Notice>() : std::vector{Notice(sentence)});
  });
  names.setUnsaved(*this, [this](const QString& besides) { return unsavedNames(besides); });
  Timer1_->setObjectName("Timer1");
  connect(Timer1_, &QTimer::timeout, this, &FrmManEdit::showClock);
  Timer1_->start(kClockInterval);
}

FrmManEdit::~FrmManEdit() {
  delete tabs_;  // its texts before the control that shows them
}

void FrmManEdit::buildCommands() {
  AddManualEditCommands(
      commands_, {*this, *new TextCommands(*TxtManEdit_), *new MoveCommands(*TxtManEdit_, *outline_), *find_,
                  *findings_, *completion_, *duplication_});
  AddSearchCommands(commands_, [this](SearchCommand command) { Q_EMIT searchAsked(command); });
  commands_.add(buildBlockPanel());
  for (const QAction* action : commands_.all()) TxtManEdit_->freeKey(action->shortcut());
  BuildManualEditMenu(*menuBar(), commands_);
  commands_.action("extractText").setVisible(false);
  buildOpening();
}

// The ways to open files that begin in this window.
void FrmManEdit::buildOpening() {
  recent_ = new RecentFiles(*findChild<QMenu*>("menuRecent"), services_.settings);
  connect(recent_, &RecentFiles::chosen, this, [this](const QString& file) { openFiles({file}); });
  auto* drops = new FileDrops(this);
  QWidget* text = TxtManEdit_->focusProxy();
  for (QWidget* widget :
       {static_cast<QWidget*>(this), text, static_cast<QAbstractScrollArea*>(text)->viewport()})
    drops->watch(*widget);
  // The other program waits for the end of the drop.
  connect(drops, &FileDrops::dropped, this, &FrmManEdit::openFiles, Qt::QueuedConnection);
}

void FrmManEdit::openFiles(const QStringList& files) {
  const WindowCalls::Running call(calls_);
  for (const QString& file : files) open(RequestForUserFile(file, services_.folders));
  activateWindow();
}

// The action that shows and hides the panel.
QAction& FrmManEdit::buildBlockPanel() {
  auto* panel = new BlockPanel(*outline_, this);
  addDockWidget(Qt::LeftDockWidgetArea, panel);
  panel->setVisible(services_.settings.GetSet("ManEditBlocks", "False") == "True");
  QAction* toggle = Named("showBlocks", panel->toggleViewAction());
  toggle->setText("B&locks");
  toggle->setShortcut(Qt::Key_F7);
  connect(toggle, &QAction::triggered, this,
          [this](bool shown) { services_.settings.SaveSet("ManEditBlocks", shown ? "True" : "False"); });
  return *toggle;
}

void FrmManEdit::buildToolBar() {
  TB1_->setObjectName("TB1");
  TB1_->setMovable(false);
  TB1_->setContextMenuPolicy(Qt::PreventContextMenu);
  TB1_->setIconSize(kIconSize);
  AddManualEditButtons(*TB1_, commands_);
  TB1_->addWidget(Named("blockPath", new BlockPath(*outline_)));
  TB1_->setFixedHeight(std::max(kBarsHeight - statusBar()->height(), TB1_->sizeHint().height()));
}

void FrmManEdit::buildStatusBar() {
  statusBar()->setObjectName("SB1");
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    panels_[i] = new QLabel;
    panels_[i]->setObjectName("Panel" + QString::number(i + 1));
    panels_[i]->setTextFormat(Qt::PlainText);
    // A long path must not widen the window.
    panels_[i]->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    panels_[i]->setMinimumWidth(fontMetrics().horizontalAdvance(kPanelWidths[i].longest));
    statusBar()->addWidget(panels_[i], kPanelWidths[i].stretch);
  }
  statusBar()->setFixedHeight(std::max(kStatusBarHeight, statusBar()->sizeHint().height()));
}

bool FrmManEdit::open(const ManualEditRequest& request) {
  const WindowCalls::Running call(calls_);
  if (calls_.isClosed()) tabs_->startAnew();  // what was open has been let go
  const TextTabs::Opened opened = tabs_->open(request);
  if (opened == TextTabs::Opened::failed) return false;
  calls_.reopen();
  if (opened == TextTabs::Opened::broughtForward) {
    if (request.place.line > 0) goTo(request.place);
    return true;
  }
  if (request.ManualEditPartial == 0 && request.archive.isEmpty()) recent_->add(request.ManualEditFile);
  ManEditInitDone_ = false;
  tabs_->current().place() = request.place;
  showOther();
  findings_->setFile({});
  reopened_ = true;
  if (isVisible()) storeState();  // or the set-up would bring back what was stored before
  if (!isVisible() || !isMaximized()) RestorePlacement(services_.settings, *this);
  setUpSoon();
  return true;
}

// Of what belongs to a text, all that its tab alone does not bring back.
void FrmManEdit::showOther() {
  const OpenText& text = tabs_->current();
  commands_.action("extractText").setVisible(!text.archive().isEmpty());
  commands_.action("reload").setEnabled(!text.isPart() && text.archive().isEmpty());
  tellReadOnly();
  for (const auto notice : {OpenText::ofFile, OpenText::ofDraft}) tell(notice);
  const QString path = tabs_->current().pathInGame();
  findings_->goOnWith(path);
  completion_->setFile(path);
  duplication_->setText(tabs_->current());
  tips_->setFile(path);
  showTitle();
  if (!ManEditInitDone_) return;
  goToPending();
  showLine();
  showClock();
}

void FrmManEdit::tell(int notice) {
  const QString sentence = tabs_->current().said(static_cast<OpenText::Notice>(notice));
  QStringList sentences = notice == OpenText::ofDraft ? tabs_->saidOfDrafts() : QStringList(sentence);
  sentences.removeAll(QString());
  notices_->tell(notice, std::vector<Notice>(sentences.begin(), sentences.end()));
  showTitle();
}

void FrmManEdit::tellReadOnly() {
  const OpenText& text = tabs_->current();
  if (!text.isReadOnly()) return notices_->clear(OpenText::ofArchive);
  if (text.archive().isEmpty()) return notices_->tell(OpenText::ofArchive, {Notice(text.whyReadOnly())});
  Notice notice("This text is in " + ArchiveName(text.archive()) + " and can only be read here. ");
  notice.link("Extract to Data\\INI...", [this] { askForExtract(); });
  notices_->tell(OpenText::ofArchive, {notice});
}

void FrmManEdit::askForExtract() {
  const WindowCalls::Running call(calls_);
  const auto place = tabs_->current().cursorPlace();
  if (place && !place->archive.isEmpty()) Q_EMIT extractAsked(*place);
}

void FrmManEdit::forgetFinds() {
  find_->forget();
}

bool FrmManEdit::hasUnsaved(const QString& file) const {
  return tabs_->hasUnsaved(file);
}

// A window that is closed has let go of all.
Catalogue::Files FrmManEdit::unsavedNames(const QString& besides) const {
  return calls_.isClosed() ? Catalogue::Files() : tabs_->unsavedNames(besides);
}

bool FrmManEdit::keepUnsavedTexts() {
  const WindowCalls::Running call(calls_);
  return tabs_->letGo();
}

void FrmManEdit::keepAtEnd() {
  tabs_->keepAtEnd();
}

// A window that is active already, or whose display never activates one, gets its set-up all the same.
// Deferred, because Qt is still notifying other windows, and none may be destroyed meanwhile.
void FrmManEdit::setUpSoon() {
  QMetaObject::invokeMethod(this, &FrmManEdit::setUp, Qt::QueuedConnection);
}

bool FrmManEdit::event(QEvent* event) {
  const bool handled = QMainWindow::event(event);
  if (event->type() == QEvent::WindowActivate) {
    setUpSoon();
    QMetaObject::invokeMethod(this, &FrmManEdit::lookAgain, Qt::QueuedConnection);
  }
  return handled;
}

void FrmManEdit::lookAgain() {
  if (!ManEditInitDone_ || calls_.isClosed()) return;
  tabs_->lookAgain();
  findings_->lookAgain();
  applyOptions();
}

void FrmManEdit::applyOptions() {
  completion_->setAutomatic(FlagOf(services_.settings.GetSet("CompleteWords", "1")).value_or(true));
}

void FrmManEdit::showEvent(QShowEvent* event) {
  QMainWindow::showEvent(event);
  setUpSoon();
}

void FrmManEdit::setUp() {
  if (ManEditInitDone_ || settingUp_ || calls_.isClosed() || !isVisible()) return;
  const WindowCalls::Running call(calls_);
  settingUp_ = true;
  do {
    reopened_ = false;
    runSetUp();
  } while (reopened_ && !calls_.isClosed());
  settingUp_ = false;
}

void FrmManEdit::runSetUp() {
  show();
  setEnabled(false);
  showClock();
  showState("Loading...");
  if (!showStep("Loading...")) return;
  setWindowTitle("Loading, Calculating Number Of Lines...");
  tabs_->current().countLines();
  if (!prepareSearchList()) return;
  setWindowTitle("Loading, Setting Font...");
  TxtManEdit_->setTextFont(StoredFont(services_.settings, kTextFont, TxtManEdit_->textFont()));
  if (!showStep(windowTitle())) return;
  finishSetUp();
}

bool FrmManEdit::prepareSearchList() {
  find_->clear();
  if (!showStep(windowTitle())) return false;
  setWindowTitle("Loading, Loading Search List...");
  find_->load(services_.settings);
  if (!showStep(windowTitle())) return false;
  find_->removeDuplicates();
  return showStep(windowTitle());
}

// Lets the window be seen with its caption. False when it was closed meanwhile.
bool FrmManEdit::showStep(const QString& caption) {
  setWindowTitle(caption);
  services_.yield.fullTurn();
  return !calls_.isClosed();
}

void FrmManEdit::finishSetUp() {
  TxtManEdit_->moveToStart();
  outline_->expectNewText();
  showLine();
  setEnabled(true);
  ManEditInitDone_ = true;
  showTitle();
  showState("Idle");
  TxtManEdit_->setFocus();
  findings_->setFile(tabs_->current().pathInGame());
  applyOptions();
  goToPending();
}

// Another text may have come before the set-up was done with this one.
void FrmManEdit::goToPending() {
  OpenText& text = tabs_->current();
  if (text.lineTotal() == 0) text.countLines();
  if (text.place().line > 0) goToNow(std::exchange(text.place(), {}));
}

void FrmManEdit::showTitle() {
  if (!ManEditInitDone_) return;  // the set-up says there how far it is
  setWindowTitle(tabs_->hasUnsaved() ? kCaption + '*' : kCaption);
}

void FrmManEdit::storeState() {
  SavePlacement(services_.settings, *this);
  find_->save(services_.settings);
}

void FrmManEdit::closeEvent(QCloseEvent* event) {
  const WindowCalls::Running call(calls_);
  if (!tabs_->letGo()) return event->ignore();
  storeState();
  QMainWindow::closeEvent(event);
  calls_.close();
}

void FrmManEdit::showState(const QString& state) {
  panels_[statePanel]->setText(state);
}

void FrmManEdit::showLine() {
  panels_[linePanel]->setText(
      QStringLiteral("Line %1 of %2").arg(TxtManEdit_->cursorLine() + 1).arg(tabs_->current().lineTotal()));
}

void FrmManEdit::showClock() {
  const QDateTime now = QDateTime::currentDateTime();
  const QLocale locale;
  const OpenText& text = tabs_->current();
  QString file = text.isPart() ? QString() : text.file();
  if (!text.archive().isEmpty()) file += " (from " + ArchiveName(text.archive()) + ')';
  panels_[timePanel]->setText("Time: " + locale.toString(now.time(), QLocale::ShortFormat));
  panels_[datePanel]->setText("Date: " + locale.toString(now.date(), QLocale::ShortFormat));
  panels_[filePanel]->setText(file);
  panels_[filePanel]->setToolTip(file);
}

void FrmManEdit::save() {
  const WindowCalls::Running call(calls_);
  showState("Saving...");
  OpenText& text = tabs_->current();
  if (text.save()) Q_EMIT fileSaved(text.file());
  showState("Idle");
}

void FrmManEdit::reload() {
  const WindowCalls::Running call(calls_);
  tabs_->current().reload();
}

void FrmManEdit::closeTab() {
  const WindowCalls::Running call(calls_);
  tabs_->closeCurrent();
  TxtManEdit_->setFocus();
}

void FrmManEdit::showNextTab() {
  tabs_->showNext();
  TxtManEdit_->setFocus();
}

void FrmManEdit::showPreviousTab() {
  tabs_->showPrevious();
  TxtManEdit_->setFocus();
}

void FrmManEdit::tellAboutUndo() {
  const WindowCalls::Running call(calls_);
  services_.messages.show(
      {.text =
           "I am working on this feature, I will realease a new version as soon as I have finished it.\r\n"
           "If yoy want to use 'Undo', Right-click on some text and click on 'Undo'"},
      this);
}

bool FrmManEdit::goToIn(const QString& file, const ManualEditPlace& place) {
  const OpenText* text = whole(file);
  if (text == nullptr) return false;
  tabs_->bringForward(*text);
  goTo(place);
  return true;
}

void FrmManEdit::goTo(const ManualEditPlace& place) {
  if (ManEditInitDone_) {
    goToNow(place);
    TxtManEdit_->setFocus();
  } else {
    tabs_->current().place() = place;
  }
}

void FrmManEdit::goToNow(const ManualEditPlace& place) {
  TxtManEdit_->goTo(place.line - 1, place.column - 1, place.length);
  if (place.header > 0) return TxtManEdit_->keepInSight(place.header - 1);
  std::vector<const TextBlock*> path = outline_->pathAt(place.line - 1);
  std::ranges::reverse(path);
  for (const TextBlock* block : path) TxtManEdit_->keepInSight(static_cast<int>(block->firstLine) - 1);
}

std::optional<std::string> FrmManEdit::bytes(const QString& file) const {
  const OpenText* text = whole(file);
  return text == nullptr ? std::nullopt : std::optional(text->bytes());
}

void FrmManEdit::goToLine(int line) {
  TxtManEdit_->goTo(line - 1, 0, 0);
  TxtManEdit_->setFocus();
}

// A window that is closed has let go of all.
const OpenText* FrmManEdit::whole(const QString& file) const {
  return calls_.isClosed() ? nullptr : tabs_->whole(file);
}

bool FrmManEdit::edit(const QString& file, const EditPlan& plan) {
  const OpenText* text = whole(file);
  if (text == nullptr) return false;
  tabs_->bringForward(*text);
  std::vector<TextEdit> edits = plan(TxtManEdit_->legibleBytes());
  if (edits.empty()) return false;
  std::ranges::sort(edits, {}, [](const TextEdit& each) { return std::pair(each.line, each.column); });
  TxtManEdit_->apply(edits);
  goTo(PlaceOfNew(edits.front()));
  return true;
}

bool FrmManEdit::rewrite(const QString& file, const TextRewrite& rewrite) {
  const OpenText* text = whole(file);
  if (text == nullptr) return false;
  tabs_->bringForward(*text);
  const std::optional<std::string> rewritten = rewrite(text->utf8());
  if (!rewritten || *rewritten == text->utf8()) return false;
  TxtManEdit_->rewrite(*rewritten);
  goTo({TxtManEdit_->cursorLine() + 1});
  return true;
}

std::optional<std::string> FrmManEdit::utf8(const QString& file) const {
  const OpenText* text = whole(file);
  return text == nullptr ? std::nullopt : std::optional(std::string(text->utf8()));
}

std::optional<NameHere> FrmManEdit::nameHere() const {
  return NameAtCursor(*TxtManEdit_, *outline_);
}

const QString& FrmManEdit::file() const {
  return tabs_->current().file();
}

std::string FrmManEdit::part() const {
  const OpenText& text = tabs_->current();
  return text.isPart() ? std::string(text.utf8()) : std::string();
}

std::optional<ItemPlace> FrmManEdit::placeHere() const {
  const auto place = tabs_->current().cursorPlace();
  return place ? std::optional(ItemPlace{.place = *place}) : std::nullopt;
}

// The files know the lines of a text only as long as it is theirs.
std::optional<ItemPlace> FrmManEdit::blockHere() const {
  const auto place = tabs_->current().cursorPlace();
  if (place && !tabs_->current().isUnsaved()) return placeHere();
  auto item = ItemAtCursor(*TxtManEdit_, *outline_);
  if (item && place) item->place = *place;
  return item;
}

void FrmManEdit::showReplace() {
  replace_->showWith(find_->soughtText());
}

void FrmManEdit::chooseFont() {
  const WindowCalls::Running call(calls_);
  const FontRecord record = fonts_.ShowFontDialog();
  if (record.cancelled()) return;
  TxtManEdit_->setTextFont(FontOf(record, TxtManEdit_->textFont()));
  SaveFont(services_.settings, kTextFont, TxtManEdit_->textFont());
  services_.yield.fullTurn();
}

void FrmManEdit::exitCommand() {
  SavePlacement(services_.settings, *this);
  close();
}

}  // namespace korvane
