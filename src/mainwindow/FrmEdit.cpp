// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/FrmEdit.h"

#include <QCloseEvent>
#include <QComboBox>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QTabBar>
#include <QTabWidget>
#include <QToolBar>
#include <QToolButton>

#include <algorithm>
#include <chrono>

#include "app/EditorLauncher.h"
#include "controls/InPlaceTable.h"
#include "controls/Placement.h"
#include "controls/Present.h"
#include "controls/StoredFont.h"
#include "mainwindow/MainCommands.h"
#include "mainwindow/MainToolBar.h"
#include "mainwindow/TreeSigns.h"
#include "platform/EventYield.h"
#include "platform/MessageBoxes.h"
#include "platform/Programs.h"
#include "platform/TextEncoding.h"
#include "platform/Twips.h"
#include "settings/SettingsStore.h"

namespace korvane {

namespace {

constexpr int kMargin = 100;         // twips around and between the tree and the tab box
constexpr int kTabBoxWidth = 12000;  // twips; wide enough for the information list's columns
constexpr int kTreeWidth = 4200;
constexpr int kLeastTreeWidth = 180;  // pixels; most names are seen whole
constexpr int kDesignHeight = 10200;
constexpr auto kFileButtonInterval = std::chrono::milliseconds(100);

}  // namespace

FrmEdit::FrmEdit(const Services& services, EditorLauncher& launcher)
    : services_(services),
      launcher_(launcher),
      SParse1_([&services] { return services.folders.game.toStdString(); },
               [&services] { services.yield.perLine(); },
               [this](bool busy) { busy ? setCursor(Qt::WaitCursor) : unsetCursor(); }),
      TVMenu_(new ClickView<QTreeView>),
      Toolbar1_(addToolBar("Toolbar")),
      panels_(*statusBar()),
      notices_(new NoticeBar),
      objectNotices_(*notices_, launcher, services),
      lineEnds_(*this, *notices_, launcher, services, [this] { startAgain(ProcessEnd::Rights::same); }),
      typed_(fields_, *notices_),
      lastView_(services.settings, *TVMenu_, objects_, fields_),
      launch_(*this, SParse1_, services, launcher, [this] { return display_->selectedObject(); }) {
  setObjectName("FrmEdit");
  setWindowTitle(ApplicationTitle());
  setProperty("tag", ApplicationTitle());
  statusBar()->setObjectName("StatusBar");
  buildTree();
  buildLayout();
  display_ = new ObjectDisplay(*this, *TVMenu_, objects_, fields_, panels_, objectNotices_, typed_, SParse1_,
                               services_);
  fileEdits_.emplace(*this, fields_, typed_, *notices_, *display_, SParse1_, services_, launcher_);
  buildCommands();
  connectButtons();
  load();
}

void FrmEdit::buildTree() {
  TVMenu_->setObjectName("TVMenu");
  TVMenu_->setAccessibleName("Objects");
  TVMenu_->setModel(&objects_);
  TVMenu_->setHeaderHidden(true);
  TVMenu_->setUniformRowHeights(true);
  TVMenu_->setItemDelegate(new TreeSigns(TVMenu_));
}

void FrmEdit::showProblems(const QString& counts, const std::vector<ObjectErrors>& objects) {
  panels_.showProblems(counts);
  objects_.setErrors(objects);
}

void FrmEdit::showChanges(const std::optional<std::vector<ObjectChange>>& objects) {
  objects_.setChanges(objects.value_or(std::vector<ObjectChange>()));
  QAction& filter = commands_.action("onlyChanged");
  filter.setEnabled(objects.has_value());
  if (!objects) filter.setChecked(false);
  hideUnchanged();
}

// Where "Only Changed" is ticked; else all is shown.
void FrmEdit::hideUnchanged() {
  const bool only = commands_.action("onlyChanged").isChecked();
  const std::function<void(const QModelIndex&)> hideBelow = [&](const QModelIndex& above) {
    for (int row = 0; row < objects_.rowCount(above); ++row) {
      const QModelIndex node = objects_.index(row, 0, above);
      const bool shown = !only || objects_.hasChanges(node);
      TVMenu_->setRowHidden(row, above, !shown);
      if (shown) hideBelow(node);
    }
  };
  hideBelow({});
}

void FrmEdit::buildLayout() {
  auto* area = new QWidget;
  auto* layout = new QHBoxLayout(area);
  const int margin = PixelsFromTwips(kMargin, *this);
  layout->setContentsMargins(margin, margin, margin, margin);
  layout->setSpacing(margin);
  layout->addWidget(TVMenu_, 1);
  layout->addWidget(fields_.F_Tab);
  setCentralWidget(NoticeBar::below(area, notices_));
  const int screenWidth = QGuiApplication::primaryScreen()->availableGeometry().width();
  const int captions = fields_.F_Tab->tabBar()->sizeHint().width() + 2 * margin;
  const int besideTree = screenWidth - kLeastTreeWidth - 4 * margin;  // the fourth for the window's frame
  const int tabBox =
      std::min({std::max(PixelsFromTwips(kTabBoxWidth, *this), captions), screenWidth * 3 / 4, besideTree});
  fields_.F_Tab->setFixedWidth(tabBox);
  TVMenu_->setMinimumWidth(kLeastTreeWidth);
  resize(tabBox + PixelsFromTwips(kTreeWidth, *this), PixelsFromTwips(kDesignHeight, *this));
}

void FrmEdit::buildCommands() {
  Toolbar1_->setObjectName("Toolbar1");
  Toolbar1_->setMovable(false);
  Toolbar1_->setContextMenuPolicy(Qt::PreventContextMenu);
  AddMainCommands(commands_, launch_, [this] { exitCommand(); });
  commands_.add("showInFile", "&Show in File", "F6", [this] { fileEdits_->showInFile(); });
  commands_.add("editInFile", "&Edit in File", "Shift+F6", [this] { fileEdits_->editInFile(); });
  commands_.add("readAgain", "&Read Again", "F5", [this] { display_->readAgain(); });
  commands_.add("nextTab", "Next &Tab", "Ctrl+Tab", [this] { stepTab(1); });
  commands_.add("previousTab", "&Previous Tab", "Ctrl+Shift+Tab", [this] { stepTab(-1); });
  commands_.add("onlyChanged", "Onl&y Changed", {}, [this] { hideUnchanged(); });
  commands_.action("onlyChanged").setCheckable(true);
  commands_.action("onlyChanged").setEnabled(false);  // until there is a comparison
  BuildMainMenu(*menuBar(), commands_);
  BuildMainToolBar(*Toolbar1_, commands_, launch_);
  menus_.emplace(*TVMenu_, objects_, *fields_.LstInfo, launch_, commands_);
  names_.emplace(*TVMenu_, objects_, fields_, commands_, launcher_);
}

// From wherever the keyboard is; Qt's own keys need it in the tab box.
void FrmEdit::stepTab(int by) {
  const int count = fields_.F_Tab->count();
  fields_.F_Tab->setCurrentIndex((fields_.F_Tab->currentIndex() + by + count) % count);
}

void FrmEdit::connectButtons() {
  connect(TVMenu_, &QTreeView::clicked, display_, &ObjectDisplay::select);
  connect(display_, &ObjectDisplay::wasRead, notices_, [this] { notices_->clear(readAgainNotices); });
  connect(fields_.CmdME_FINI, &QPushButton::clicked, this, [this] { launch_.editObjectFile(); });
  fields_.CmdME_FINI->addAction(&commands_.action("showInFile"));
  fields_.CmdME_FINI->setContextMenuPolicy(Qt::ActionsContextMenu);
  connect(fields_.Btn_LEdit, &QPushButton::clicked, this, [this] { launch_.editLocomotors(); });
  connect(fields_.Btn_FEdit, &QPushButton::clicked, this, [this] { launch_.editObjectBlock(); });
  connect(&panels_.problems(), &QToolButton::clicked, this, [this] { launch_.checkData(); });
  connect(fields_.Command2, &QPushButton::clicked, this, [this] { launch_.showArmour(armourText()); });
  connect(fields_.CboArmour, &QComboBox::editTextChanged, this,
          [this](const QString& name) { launcher_.selectArmour(name); });
  const auto editsWeaponOf = [this](QPushButton* button, QComboBox* list) {
    connect(button, &QPushButton::clicked, this, [this, list] { launch_.showWeapon(list->currentText()); });
  };
  editsWeaponOf(fields_.PWeaponEdit, fields_.PWeapon);
  editsWeaponOf(fields_.SWeaponEdit, fields_.SWeapon);
  editsWeaponOf(fields_.TWeaponEdit, fields_.TWeapon);
  Timer1_.setObjectName("Timer1");
  connect(&Timer1_, &QTimer::timeout, this, &FrmEdit::nameFileButton);
}

void FrmEdit::load() {
  RestorePlacement(services_.settings, *this);
  display_->selectInfoTab();
  applyTreeFont();
  Timer1_.start(kFileButtonInterval);
  connect(&services_.settings, &SettingsStore::troubleChanged, this, &FrmEdit::showSettingsTrouble);
  showSettingsTrouble();
}

void FrmEdit::showSettingsTrouble() {
  const SettingsStore& settings = services_.settings;
  panels_.showTrouble(settings.trouble(), settings.placeName());
}

void FrmEdit::applyOptions() {
  applyTreeFont();
  display_->selectInfoTab();
}

void FrmEdit::applyTreeFont() {
  TVMenu_->setFont(StoredFont(services_.settings, kTreeFont, TVMenu_->font()));
}

void FrmEdit::prepareInformationList() {
  display_->information().prepare();
}

void FrmEdit::readWeapons() {
  const ParserTurn turn(SParse1_);
  if (!turn) return;  // the next object to be shown brings them too
  const TypedMarks::Reading reading = typed_.readsWeapons();
  display_->choices().readWeapons();
}

void FrmEdit::nameFileButton() {
  const ObjectNode* node = display_->selectedNode();
  if (node != nullptr && Grandparent(*node) != nullptr)
    fields_.CmdME_FINI->setText("Manual Edit " + QString::fromStdString(node->tag));
}

bool FrmEdit::showObject(const QString& path, const QString& name) {
  const QModelIndex index = objects_.find(path, name);
  if (!index.isValid()) return false;
  TVMenu_->setCurrentIndex(index);
  TVMenu_->scrollTo(index);
  Present(*this);
  if (!IsObjectNode(*objects_.node(index))) return false;
  display_->select(index);
  return true;
}

void FrmEdit::fileSaved(const QString& file) {
  if (!display_->readsFrom(file)) return;
  savedFile_ = file;
  again_.start();
}

bool FrmEdit::readAgain() {
  if (const ParserTurn turn(SParse1_); !turn) return false;
  if (fileEdits_->takeSavedAsRead()) return display_->readAgain();
  const auto read = [this] { display_->readAgain(); };
  notices_->tell(readAgainNotices, {ReadAgainNotice(savedFile_, read)});
  return true;
}

std::optional<NameHere> FrmEdit::nameHere() const {
  return names_->nameHere();
}

std::optional<ItemPlace> FrmEdit::placeHere() const {
  const ObjectNode* node = display_->selectedNode();
  const auto object = ShownNames::nameOf(node);
  if (!object) return std::nullopt;
  const QString path = "Data\\INI\\" + QString::fromStdString(node->file);
  return ItemPlace{GameStructure::get().kind("Object"), object->name, {.path = path}};
}

QStringList FrmEdit::weaponNames() const {
  return fields_.weapons->stringList();
}

bool FrmEdit::armourChosen() const {
  return !armourText().isEmpty();
}

QString FrmEdit::armourText() const {
  return fields_.CboArmour->currentText();
}

bool FrmEdit::exitConfirmed() {
  if (!FlagOf(services_.settings.GetSet("Exit")).value_or(true)) return true;
  return services_.messages.show({.text = "Are you sure that you want to quit?",
                                  .title = "Do you want to quit?",
                                  .icon = Message::Icon::question,
                                  .buttons = Message::Buttons::yesNo},
                                 this);
}

// Whatever program the user comes back from may have mended a file.
bool FrmEdit::event(QEvent* event) {
  const bool handled = QMainWindow::event(event);
  if (event->type() == QEvent::WindowActivate) lineEnds_.lookAgain();
  return handled;
}

void FrmEdit::remember() {
  SavePlacement(services_.settings, *this);
  lastView_.save();
}

void FrmEdit::restoreLastView() {
  lastView_.restore([this](const QModelIndex& index) { display_->select(index); });
}

void FrmEdit::closeEvent(QCloseEvent* event) {
  if (ConfirmExit_) {
    if (!exitConfirmed() || !launcher_.keepUnsavedTexts()) {
      event->ignore();
      return;
    }
    remember();
    CloseSoft();
  }
  event->accept();
}

void FrmEdit::CloseSoft() {
  launcher_.CloseBrowse();
  services_.process.end();
}

void FrmEdit::exitCommand() {
  if (!launcher_.keepUnsavedTexts()) return;
  remember();
  leave();
}

void FrmEdit::startAgain(ProcessEnd::Rights rights) {
  if (!launcher_.keepUnsavedTexts()) return;
  remember();
  if (services_.process.startAnew(rights)) leave();
}

void FrmEdit::leave() {
  ConfirmExit_ = false;
  launcher_.CloseBrowse();
  close();
  services_.process.end();
}

}  // namespace korvane
