// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/Program.h"

#include <QDeadlineTimer>
#include <QEventLoop>

#include <chrono>

#include "about/FrmFun.h"
#include "about/frmAbout.h"
#include "app/FurtherData.h"
#include "controls/Present.h"
#include "editors/CmdSetFormat.h"
#include "editors/FrmAmrPar.h"
#include "editors/FrmArmour.h"
#include "editors/FrmCmdSet.h"
#include "editors/TableEditors.h"
#include "history/CompareWindow.h"
#include "history/FileVersions.h"
#include "history/HistoryWindow.h"
#include "mainwindow/FrmEdit.h"
#include "manualeditor/FrmManEdit.h"
#include "options/FrmOpt.h"
#include "platform/EventYield.h"
#include "platform/KeptVersions.h"
#include "platform/LineEndConversion.h"
#include "platform/MessageBoxes.h"
#include "platform/Registry.h"
#include "problems/ProblemsWindow.h"
#include "search/UsesWindow.h"
#include "setup/frmWizard.h"
#include "startup/frmSplash.h"

namespace korvane {

namespace {

constexpr auto kLongestWait = std::chrono::seconds(10);  // for the names

// A table editor reads its list when it is made; the events that run meanwhile already find the window
// registered. If the user closes it meanwhile the reference stays valid until control returns to the event
// loop.
template <typename Editor>
Editor& Loaded(Lazy<Editor>& lazy) {
  Editor& editor = lazy.get();
  editor.load();
  return editor;
}

}  // namespace

Program::Program(const Services& services, Folders& folders, QString arguments)
    : services_(services),
      folders_(folders),
      arguments_(std::move(arguments)),
      versions_(std::make_unique<KeptVersions>(files_)),
      fonts_([this] { return &options_.get(); }),
      registry_(SystemRegistry()),
      names_(services.folders),
      searchRows_(names_),
      places_(services, *this, [this]() -> FrmEdit& { return mainWindow(); }),
      searchDesk_(searchRows_, places_, [this]() -> UsesWindow& { return uses_.get(); }),
      dataCheck_(names_),
      dataComparison_(services),
      uses_([this] { return makeUsesWindow(); }),
      wizard_([this] { return makeWizard(); }),
      manualEditor_([this] { return makeManualEditor(); }),
      options_([this] { return makeOptions(); }),
      about_([this] { return makeAbout(); }),
      extras_([this] { return new FrmFun(services_.settings); }),
      weaponEditor_([this] { return withSearch(new FrmWE(editorContext())); }),
      armourEditor_([this] { return makeArmourEditor(); }),
      damageTypes_([this] { return makeDamageTypes(); }),
      commandSetEditor_([this] { return makeCommandSetEditor(); }),
      commandSetFormat_([this] { return new CmdSetFormat(services_.settings); }),
      commandButtonEditor_([this] { return withSearch(new FrmCmdBtn(editorContext())); }),
      problems_([this] { return new ProblemsWindow(services_, names_, dataCheck_, places_, *this); }),
      history_([this] { return new HistoryWindow(services_, files_, *versions_, *this); }),
      compare_([this] { return new CompareWindow(services_, files_, dataComparison_, places_); }) {}

Program::~Program() = default;

void Program::StartProgram() {
  services_.yield.fullTurn();
  tellTorn();
  runSplash();
  chooser_.BrowseHost = wizard_.get().PicBrouse();
  chooser_.BrowseForFolder({});
}

void Program::tellTorn() {
  for (const KeptVersions::Torn& torn : versions_->torn()) {
    services_.messages.show(
        {.text = "The program was ended while it wrote a file, which may be damaged: \r\n" + torn.path +
                 "\r\nIts former version is kept: \r\n" + torn.former},
        nullptr);
  }
}

void Program::tellKeptTexts() {
  std::vector<Notice> notices;
  for (const auto& [path, version] : versions_->recovered()) {
    Notice notice("Text of " + path.section('\\', -1) + " that was not saved on " +
                  ShortTimeText(version.time) + " was kept. ");
    notice.link("Show", [this, file = path, kept = version.file] { showHistory(file, kept); });
    notices.push_back(notice);
  }
  mainWindow_->tell(keptTextNotices, std::move(notices));
}

void Program::showHistory(const QString& file, const QString& version) {
  history_.get().showFile(file, version);
  Present(history_.get());
}

// Of the file, or of the part of one, that the window shows.
void Program::showHistoryOf(const QWidget& window) {
  if (const FrmManEdit* editor = manualEditor_.existing(); editor == &window) {
    history_.get().showPart(editor->file(), editor->part());
    return Present(history_.get());
  }
  const auto* source = dynamic_cast<const NameSource*>(&window);
  const auto place = source == nullptr ? std::nullopt : source->placeHere();
  showHistory(place ? services_.folders.game + '\\' + place->place.path : QString());
}

void Program::keepAtEnd() {
  if (FrmManEdit* editor = manualEditor_.existing()) editor->keepAtEnd();
}

void Program::runSplash() {
  frmSplash splash(services_, folders_, *this, arguments_);
  splash.load();
  names_.setFurtherData(FurtherDataOf(services_.settings, services_.folders.game));
  dataComparison_.forget();
  names_.filesChanged();  // the wizard restores files, and may have chosen another folder
}

FrmEdit& Program::mainWindow() {
  if (!mainWindow_) {
    mainWindow_ = std::make_unique<FrmEdit>(services_, *this);
    mainWindow_->useCatalogue(names_);
    tellKeptTexts();
    searchDesk_.addField(*mainWindow_, mainWindow_->commands());
    QObject::connect(&dataCheck_, &DataCheck::resultChanged, mainWindow_.get(), [this] {
      const DataCheck::ResultPtr& result = dataCheck_.result();
      mainWindow_->showProblems(CountsText(*result), result->objects);
    });
    QObject::connect(&dataComparison_, &DataComparison::resultChanged, mainWindow_.get(), [this] {
      const DataComparison::ResultPtr& result = dataComparison_.result();
      mainWindow_->showChanges(result == nullptr ? std::nullopt : std::optional(ChangedObjects(*result)));
    });
  }
  return *mainWindow_;
}

frmWizard* Program::makeWizard() {
  auto* window = new frmWizard(services_, chooser_, files_);
  // The wizard has stored a font for the tree, which the main window read before there was one.
  QObject::connect(window, &frmWizard::finished, &mainWindow(), &FrmEdit::applyOptions);
  QObject::connect(window, &frmWizard::finished, window, [this] { runSplash(); });
  return window;
}

bool Program::wizardVisible() {
  return wizard_.get().isVisible();
}

void Program::showWizard() {
  Present(wizard_.get());
}

void Program::hideWizard() {
  wizard_.get().hide();
}

void Program::CloseBrowse() {
  chooser_.CloseBrowse();
}

FrmOpt* Program::makeOptions() {
  auto* window = new FrmOpt(services_.settings, fonts_);
  QObject::connect(window, &FrmOpt::optionsApplied, &mainWindow(), &FrmEdit::applyOptions);
  QObject::connect(window, &FrmOpt::searchHistoryCleared, window, [this] {
    if (FrmManEdit* editor = manualEditor_.existing()) editor->forgetFinds();
  });
  return window;
}

void Program::showOptions() {
  Present(options_.get());
}

frmAbout* Program::makeAbout() {
  auto* window = new frmAbout(services_.settings, services_.messages, *registry_, programs_);
  QObject::connect(window, &frmAbout::extrasRequested, window, [this] { Present(extras_.get()); });
  return window;
}

void Program::showAbout() {
  Present(about_.get());
}

UsesWindow* Program::makeUsesWindow() {
  auto* window = new UsesWindow(services_.settings, names_, places_);
  QObject::connect(window, &UsesWindow::searchAsked, window,
                   [this, window](SearchCommand command) { search(command, *window); });
  searchDesk_.addPopup(*window, window->commands());
  return window;
}

template <typename Editor>
Editor* Program::withSearch(Editor* editor) {
  searchDesk_.addPopup(*editor, editor->commands());
  return editor;
}

TableEditorContext Program::editorContext() {
  return {mainWindow().parser(), services_, *this, mainWindow()};
}

void Program::showWeaponEditor() {
  Present(Loaded(weaponEditor_));
}

void Program::selectWeapon(const QString& name) {
  Loaded(weaponEditor_).selectEntry(name);
}

FrmArmour* Program::makeArmourEditor() {
  auto* window = withSearch(new FrmArmour(editorContext()));
  QObject::connect(window, &FrmArmour::damageTypesAsked, window, [this] { Present(damageTypes_.get()); });
  return window;
}

FrmAmrPar* Program::makeDamageTypes() {
  auto* window = new FrmAmrPar;
  QObject::connect(window, &FrmAmrPar::typeChosen, window,
                   [this](const QString& type) { armourEditor().addDamageType(type); });
  return window;
}

// Loaded with the entry that the main window's armour list names, as if it had followed that list all along.
FrmArmour& Program::armourEditor() {
  const bool isNew = armourEditor_.existing() == nullptr;
  FrmArmour& editor = Loaded(armourEditor_);
  if (isNew && mainWindow().armourChosen()) editor.selectEntry(mainWindow().armourText());
  return editor;
}

void Program::showArmourEditor() {
  Present(armourEditor());
}

void Program::selectArmour(const QString& name) {
  if (FrmArmour* editor = armourEditor_.existing()) editor->selectEntry(name);
}

FrmCmdSet* Program::makeCommandSetEditor() {
  auto* window = withSearch(new FrmCmdSet(editorContext()));
  QObject::connect(window, &FrmCmdSet::formatAsked, window, [this] { Present(commandSetFormat_.get()); });
  return window;
}

void Program::showCommandSetEditor() {
  Present(Loaded(commandSetEditor_));
}

void Program::showCommandButtonEditor() {
  Present(Loaded(commandButtonEditor_));
}

FrmManEdit* Program::makeManualEditor() {
  auto* window = new FrmManEdit(services_, files_, *versions_, fonts_, names_);
  QObject::connect(window, &FrmManEdit::searchAsked, window,
                   [this, window](SearchCommand command) { search(command, *window); });
  QObject::connect(window, &FrmManEdit::extractAsked, window, [this, window](const FilePlace& place) {
    if (places_.extract(place, *window)) names_.filesChanged();
  });
  QObject::connect(window, &FrmManEdit::administratorAsked, window,
                   [this] { mainWindow().startAgain(ProcessEnd::Rights::administrator); });
  QObject::connect(window, &FrmManEdit::fileSaved, window, [this](const QString& file) { fileSaved(file); });
  searchDesk_.addPopup(*window, window->commands(), [window](int line) { window->goToLine(line); });
  return window;
}

void Program::showManualEditor(const ManualEditRequest& request) {
  if (manualEditor_.get().open(request)) Present(manualEditor_.get());
}

// What windows show of the file is read again.
void Program::fileSaved(const QString& file) {
  names_.filesChanged();
  if (mainWindow_) mainWindow_->fileSaved(file);
  const auto tell = [&file](const auto& editor) {
    if (auto* window = editor.existing()) window->fileSaved(file);
  };
  tell(weaponEditor_);
  tell(armourEditor_);
  tell(commandSetEditor_);
  tell(commandButtonEditor_);
}

bool Program::goToInManualEditor(const QString& file, const ManualEditPlace& place) {
  FrmManEdit* editor = manualEditor_.existing();
  if (editor == nullptr || !editor->goToIn(file, place)) return false;
  Present(*editor);
  return true;
}

bool Program::wholeInManualEditor(const QString& file) {
  FrmManEdit& editor = manualEditor_.get();
  return editor.bytes(file) || editor.open({file});
}

bool Program::editInManualEditor(const QString& file, const EditPlan& plan) {
  if (!wholeInManualEditor(file)) return false;
  const bool edited = manualEditor_.get().edit(file, plan);
  Present(manualEditor_.get());
  return edited;
}

bool Program::rewriteInManualEditor(const QString& file, const TextRewrite& rewrite) {
  if (!wholeInManualEditor(file)) return false;
  const bool rewritten = manualEditor_.get().rewrite(file, rewrite);
  Present(manualEditor_.get());
  return rewritten;
}

std::optional<std::string> Program::utf8InManualEditor(const QString& file) const {
  const FrmManEdit* editor = manualEditor_.existing();
  return editor == nullptr ? std::nullopt : editor->utf8(file);
}

std::optional<std::string> Program::textInManualEditor(const QString& file) const {
  const FrmManEdit* editor = manualEditor_.existing();
  return editor == nullptr ? std::nullopt : editor->bytes(file);
}

// The user has to hear it before an edit is made. Reading the names takes a moment, in which no input comes
// in.
void Program::waitForNames() {
  names_.ensure();
  const QDeadlineTimer deadline(kLongestWait);
  QEventLoop events;
  while (names_.catalogue() == nullptr && names_.isReading() && !deadline.hasExpired())
    events.processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
}

std::optional<std::size_t> Program::objectsThatName(std::string_view kind, std::string_view name) {
  waitForNames();
  if (names_.catalogue() == nullptr) return std::nullopt;
  return CountUsers(*names_.catalogue(), kind, name, "Object");
}

bool Program::showEntry(TableEditorId editor, const QString& name) {
  const auto show = [&name](auto& window) {
    const bool found = Loaded(window).clickEntry(name);
    if (found) Present(window.get());
    return found;
  };
  switch (editor) {
    case TableEditorId::weapons:
      return show(weaponEditor_);
    case TableEditorId::armours:
      return show(armourEditor_);
    case TableEditorId::commandSets:
      return show(commandSetEditor_);
    default:
      return show(commandButtonEditor_);
  }
}

void Program::search(SearchCommand command, QWidget& window) {
  if (command == SearchCommand::problems) {
    Present(problems_.get());
  } else if (command == SearchCommand::original) {
    Present(compare_.get());
  } else if (command == SearchCommand::history) {
    showHistoryOf(window);
  } else {
    searchDesk_.carryOut(command, window);
  }
}

void Program::showDefinition(const NameHere& name) {
  searchDesk_.goToDefinition(name);
}

QString Program::tellOfName(const NameHere& name) {
  return searchDesk_.tellOfName(name);
}

bool Program::keepUnsavedTexts() {
  FrmManEdit* editor = manualEditor_.existing();
  return editor == nullptr || editor->keepUnsavedTexts();
}

bool Program::hasUnsavedText(const QString& file) const {
  const FrmManEdit* editor = manualEditor_.existing();
  return editor != nullptr && editor->hasUnsaved(file);
}

QString Program::convertLineEnds(const QString& path) {
  const QString problem = ConvertLineEnds(path, files_, *versions_);
  fileSaved(path);
  return problem;
}

}  // namespace korvane
