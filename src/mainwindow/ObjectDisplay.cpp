// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/ObjectDisplay.h"

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeView>

#include <algorithm>
#include <utility>

#include "app/ManualEditRequest.h"
#include "controls/MaskedField.h"
#include "controls/ShownText.h"
#include "files/NativePath.h"
#include "ini/BlockParts.h"
#include "ini/DataFiles.h"
#include "ini/IniText.h"
#include "mainwindow/BusyWindow.h"
#include "mainwindow/FrmColData.h"
#include "mainwindow/KeptFields.h"
#include "mainwindow/ObjectNotices.h"
#include "mainwindow/ObjectTreeModel.h"
#include "mainwindow/StatusPanels.h"
#include "mainwindow/TypedMarks.h"
#include "mainwindow/UnitFields.h"
#include "platform/EventYield.h"
#include "platform/TextEncoding.h"
#include "settings/SettingsStore.h"

namespace korvane {

namespace {

constexpr std::string_view kObject = "Object";
constexpr std::string_view kConditions = "Conditions";

struct TextField {
  std::string_view key;
  QLineEdit* UnitFields::*field;
};

// In the order in which an object fills them.
constexpr std::array<TextField, 6> kTextFields = {{
    {"MaxHealth", &UnitFields::MHealth},
    {"InitialHealth", &UnitFields::IHealth},
    {"BuildCost", &UnitFields::TxtCost},
    {"BuildTime", &UnitFields::TxtBS},
    {"VisionRange", &UnitFields::TxtVisRange},
    {"ShroudClearingRange", &UnitFields::TxtSCR},
}};

// What the bar of the progress window shows when a stage is done; the six text fields are stages 1 to 6.
enum Stage {
  armourRead = 8,
  weaponsRead = 12,
  weaponSetsRead = 16,
  tabsRead = 20,
  locomotorsRead = 24,
  allRead = 25
};

QString WithoutLineBreaks(std::string_view bytes) {
  return FromBytes(bytes).remove(kCrLf);
}

// All words of the conditions, of which the lists show the last one.
QString AllConditions(std::string_view weaponSet) {
  QStringList all;
  ForEachPiece(weaponSet, kLineEnd, [&](std::string_view line) {
    if (!TrimSpaces(line).starts_with(kConditions)) return;
    const std::string_view value = line.substr(0, line.find(';'));
    all += FromBytes(TrimSpaces(value.substr(std::min(value.find('='), value.size() - 1) + 1)));
  });
  return all.join('\n');
}

void AddCondition(QComboBox& list, const std::string& weaponSet) {
  const std::string value = SParse::GetParameterValueNoINI("Weapon", kConditions, weaponSet);
  const QString shown = ShownText(WithoutLineBreaks(value));
  const QString all = ShownText(AllConditions(weaponSet));
  list.addItem(shown);
  if (all != shown) list.setItemData(list.count() - 1, all, Qt::ToolTipRole);
}

void Select(QComboBox& list, int index) {
  const QSignalBlocker silent(list);
  list.setCurrentIndex(index);
}

// An entry of a list that is filled anew.
struct Entry {
  int index = -1;
  QString text{};
};

Entry EntryOf(const QComboBox& list) {
  return {list.currentIndex(), list.currentText()};
}

// Where it stands now: in its old place where that has its text, else where the text stands, else first.
int IndexOf(const Entry& entry, const QComboBox& list) {
  if (list.count() == 0) return -1;
  const bool stays = entry.index >= 0 && list.itemText(entry.index) == entry.text;
  return stays ? entry.index : std::max(list.findText(entry.text, Qt::MatchExactly), 0);
}

// Puts the handling values of a locomotor into the masked fields.
class FieldSink : public LocomotorFields {
 public:
  explicit FieldSink(UnitFields& fields) : fields_(fields) {}
  void reset(int index) override { field(index).showTemplate(); }
  void insert(int index, std::string_view value) override { field(index).insertValue(FromBytes(value)); }

 private:
  MaskedField& field(int index) { return *fields_.HS_TextBox[static_cast<std::size_t>(index)]; }
  UnitFields& fields_;
};

}  // namespace

ObjectDisplay::ObjectDisplay(QWidget& window, QTreeView& tree, const ObjectTreeModel& model,
                             UnitFields& fields, StatusPanels& panels, ObjectNotices& notices,
                             TypedMarks& typed, SParse& parser, const Services& services)
    : QObject(&window),
      window_(window),
      tree_(tree),
      model_(model),
      fields_(fields),
      panels_(panels),
      notices_(notices),
      typed_(typed),
      parser_(parser),
      services_(services),
      information_(fields,
                   [this] {
                     const ObjectNode* node = selectedNode();
                     return node == nullptr ? QString() : ObjectTreeModel::shownText(*node);
                   }),
      choices_(fields, services, parser.yield()) {
  connectFields();
  connectLists();
}

void ObjectDisplay::connectFields() {
  const auto update = [this] { information_.UpdateLV(); };
  for (const TextField& text : kTextFields)
    connect(fields_.*text.field, &QLineEdit::textChanged, this, update);
  for (MaskedField* field : fields_.HS_TextBox) connect(field, &QLineEdit::textChanged, this, update);
  for (QComboBox* list : {fields_.PWeapon, fields_.SWeapon, fields_.TWeapon}) {
    connect(list, &QComboBox::activated, this, update);
    connect(list->lineEdit(), &QLineEdit::textEdited, this, update);
  }
  for (std::size_t i = 0; i < fields_.HS_ClearBtn.size(); ++i) {
    connect(fields_.HS_ClearBtn[i], &QPushButton::clicked, this, [this, i] { clearHandlingField(i); });
  }
}

void ObjectDisplay::connectLists() {
  connect(fields_.Conditions, &QComboBox::activated, this, &ObjectDisplay::conditionChosen);
  connect(fields_.CondCombo, &QComboBox::activated, this, [this](int index) {
    if (DisplayReady_) Select(*fields_.Conditions, index);
    conditionChosen(index);
  });
  connect(fields_.CboLoco, &QComboBox::activated, this, [this](int index) {
    if (DisplayReady_) chooseLocomotorTab(index);
  });
  // The tab bar tells of a click on the tab that is selected already by this signal alone.
  connect(fields_.LocoTab, &QTabBar::tabBarClicked, this, [this](int tab) {
    if (tab >= 0 && tab == shownTab_) readLocomotorTab(tab);
  });
  connect(fields_.LocoTab, &QTabBar::currentChanged, this, [this](int tab) {
    if (tab != shownTab_) readLocomotorTab(tab);
  });
  connect(fields_.CboLocomotor->lineEdit(), &QLineEdit::textEdited, this, &ObjectDisplay::renameLocomotorTab);
  connect(fields_.CboLocomotor, &QComboBox::textActivated, this, &ObjectDisplay::renameLocomotorTab);
}

// The current node alone will not do: a tree that gets the focus makes its first node the current one.
const ObjectNode* ObjectDisplay::selectedNode() const {
  return model_.node(tree_.selectionModel()->selectedIndexes().value(0));
}

SelectedObject ObjectDisplay::selectedObject() const {
  const ObjectNode* node = selectedNode();
  if (node == nullptr) return {};
  // A node without a tag has no file to open, though it may have one to be listed from.
  return {node->text, node->tag.empty() ? std::string(kObjectsBelowIni) : node->file};
}

ProgramPath ObjectDisplay::objectPath(const ObjectNode& node) const {
  return IniPath(services_.folders.game.toStdString(), node.file);
}

void ObjectDisplay::select(const QModelIndex& index) {
  wanted_ = index;
  if (takingKeys_) return;
  while (wanted_.isValid()) {
    if (!selectNow(std::exchange(wanted_, {}))) return;
    takingKeys_ = true;
    const KeysOfBusyWindow keys(window_);
    takingKeys_ = false;
    // In the loop's next turn, right before the painting.
    QMetaObject::invokeMethod(
        this, [this] { notices_.tellAnnounced(); }, Qt::QueuedConnection);
  }
}

bool ObjectDisplay::selectNow(const QModelIndex& index) {
  const ParserTurn turn(parser_);
  const ObjectNode* node = model_.node(index);
  if (!turn || node == nullptr) {
    tree_.setCurrentIndex(shownNode_);
    return false;
  }
  shownNode_ = index;
  const EventYield::HeldInput held(services_.yield);
  showNode(*node);
  return true;
}

void ObjectDisplay::showNode(const ObjectNode& node) {
  BusyWindow busy(window_, tree_);
  fields_.F_Tab->setEnabled(false);
  DisplayReady_ = false;
  armour_.clear();
  reportNode(node);
  const bool isObject = IsObjectNode(node);
  const bool fileIsThere = !isObject || FileExists(objectPath(node));
  if (!fileIsThere) {
    panels_.show(StatusPanels::file, QString::fromStdString(node.tag) + "  (Error: File does not exist)");
    services_.yield.fullTurn();
  }
  const bool shown = isObject && fileIsThere;
  {
    const TypedMarks::Reading reading = shown ? typed_.readsAll() : typed_.readsArmour();
    if (shown) showObject(node, busy);
    ShowText(*fields_.CboArmour, armour_);
  }
  tellWhoseValues(node, shown);
  if (fileIsThere) information_.UpdateLV();
  if (shown) {
    notices_.announce(node);
  } else {
    notices_.clear();
  }
  Q_EMIT wasRead();
  DisplayReady_ = true;
  services_.yield.fullTurn();
}

// The fields keep what they show until the next object is shown.
void ObjectDisplay::tellWhoseValues(const ObjectNode& node, bool shown) {
  if (shown) valuesOf_ = ObjectTreeModel::shownText(node);
  fields_.F_Tab->setToolTip(shown || valuesOf_.isEmpty() ? QString()
                                                         : "These are the values of " + valuesOf_);
}

void ObjectDisplay::selectInfoTab() {
  bool isNumber = false;
  const int tab = services_.settings.GetSet("InfoTab").toInt(&isNumber);
  if (isNumber) fields_.F_Tab->setCurrentIndex(tab);
}

void ObjectDisplay::reportNode(const ObjectNode& node) {
  panels_.show(StatusPanels::file, QString::fromStdString(node.tag));
  services_.yield.fullTurn();
  panels_.show(StatusPanels::path, ObjectTreeModel::fullPath(node));
  panels_.show(StatusPanels::count,
               "There are " + QString::number(node.children.size()) + " items in this catagory.");
}

void ObjectDisplay::showObject(const ObjectNode& node, BusyWindow& busy) {
  shownObject_ = {node.text, node.file};
  fields_.F_Tab->setEnabled(true);
  FrmColData progress(window_);
  connect(&progress, &FrmColData::cameUp, &progress, [&busy] { busy.showChanges(); });
  selectInfoTab();
  readValues(Choices::first, [&progress](int stage) { progress.setStage(stage); });
}

bool ObjectDisplay::readAgain() {
  const ParserTurn turn(parser_);
  if (!turn) return false;
  const ObjectNode* node = selectedNode();
  const bool isShown = node != nullptr && node == model_.node(shownNode_) && fields_.F_Tab->isEnabled();
  if (!isShown || !FileExists(objectPath(*node))) return true;
  const EventYield::HeldInput held(services_.yield);
  const KeptFields kept(fields_);
  {
    const TypedMarks::Reading reading = typed_.readsAll();
    readValues(Choices::kept, [](int) {});
    ShowText(*fields_.CboArmour, armour_);
  }
  information_.UpdateLV();
  notices_.tellAbout(*node);
  Q_EMIT wasRead();
  return true;
}

bool ObjectDisplay::readsFrom(const QString& file) const {
  const std::array files = {std::string_view(shownObject_.file), kLocomotorFile, kWeaponFile, kArmorFile};
  return !shownObject_.name.empty() && std::ranges::any_of(files, [&](std::string_view each) {
    const QString path = DataFilePath(services_.folders, DataFolder::ini, FromBytes(each));
    return path.compare(file, Qt::CaseInsensitive) == 0;
  });
}

void ObjectDisplay::readValues(Choices choices, const StageDone& done) {
  const std::string& file = shownObject_.file;
  parser_.ObjectName = shownObject_.name;
  readTextFields(file, done);
  armour_ = FromBytes(parser_.GetParameterValue(kObject, "Armor ", file)).section(kCrLf, 0, 0);
  done(armourRead);
  choices_.readWeapons();
  done(weaponsRead);
  readWeaponSets(file, choices);
  done(weaponSetsRead);
  readLocomotorTabs(choices);
  done(tabsRead);
  choices_.readLocomotors();
  done(locomotorsRead);
  choices_.readArmours();
  done(allRead);
  const int selected = fields_.LocoTab->currentIndex();
  if (selected >= 0) ShowText(*fields_.CboLocomotor, TabCaption(*fields_.LocoTab, selected));
}

void ObjectDisplay::readTextFields(const std::string& file, const StageDone& done) {
  int stage = 0;
  for (const TextField& text : kTextFields) {
    QLineEdit& field = *(fields_.*text.field);
    field.setText(WithoutLineBreaks(parser_.GetParameterValue(kObject, text.key, file)));
    field.setCursorPosition(0);
    done(++stage);
  }
}

void ObjectDisplay::readWeaponSets(const std::string& file, Choices choices) {
  parser_.ExtractWeapons(parser_.GetObjectText(kObject, file));
  const std::vector<std::string>& sets = parser_.WeaponSetTexts();
  const Entry before = choices == Choices::kept ? EntryOf(*fields_.Conditions) : Entry();
  for (QComboBox* list : {fields_.CondCombo, fields_.Conditions}) {
    list->clear();
    for (std::size_t i = 0; i + 1 < sets.size(); ++i) AddCondition(*list, sets[i]);
    Select(*list, IndexOf(before, *list));
  }
  showWeaponsOf(fields_.Conditions->currentIndex());
}

void ObjectDisplay::readLocomotorTabs(Choices choices) {
  QStringList names;
  for (const std::string& name : parser_.LocomotorNames(selectedObject()))
    names << ShownText(FromBytes(name));
  const Entry before = choices == Choices::kept ? EntryOf(*fields_.CboLoco) : Entry();
  fields_.CboLoco->clear();
  fields_.CboLoco->addItems(names);
  const int tab = IndexOf(before, *fields_.CboLoco);
  showLocomotorNames(names, tab);
  showLocomotorOf(tab);
  Select(*fields_.CboLoco, tab);
}

void ObjectDisplay::showLocomotorNames(const QStringList& names, int current) {
  const QSignalBlocker silent(fields_.LocoTab);
  while (fields_.LocoTab->count() > 0) fields_.LocoTab->removeTab(0);
  for (const QString& name : names) {
    const int position = fields_.LocoTab->addTab({});
    SetTabCaption(*fields_.LocoTab, position, name);
    fields_.LocoTab->setTabData(position, "PvKey" + QString::number(position + 1));
  }
  fields_.LocoTab->setFocusPolicy(names.isEmpty() ? Qt::NoFocus : Qt::TabFocus);
  fields_.LocoTab->setCurrentIndex(current);
  fields_.LocoTab->updateGeometry();  // on a page that is not shown it does not tell its layout by itself
}

void ObjectDisplay::conditionChosen(int index) {
  if (!DisplayReady_) {
    information_.UpdateLV();
    return;
  }
  {
    const TypedMarks::Reading reading = typed_.readsWeapons();
    showWeaponsOf(index);
  }
  Select(*fields_.CondCombo, index);
  information_.UpdateLV();
}

void ObjectDisplay::showWeaponsOf(int weaponSet) {
  const std::vector<std::string>& sets = parser_.WeaponSetTexts();
  const bool exists = weaponSet >= 0 && static_cast<std::size_t>(weaponSet) < sets.size();
  std::vector<std::string_view> values;
  if (exists) values = SParse::ParameterValues("Weapon", sets[static_cast<std::size_t>(weaponSet)]);
  values.resize(std::max<std::size_t>(values.size(), 4));
  // The first value is that of the weapon set's own header.
  ShowText(*fields_.PWeapon, CleanWeaponName(FromBytes(values[1])));
  ShowText(*fields_.SWeapon, CleanWeaponName(FromBytes(values[2])));
  ShowText(*fields_.TWeapon, CleanWeaponName(FromBytes(values[3])));
}

void ObjectDisplay::chooseLocomotorTab(int tab) {
  if (tab == shownTab_) {
    readLocomotorTab(tab);
  } else {
    fields_.LocoTab->setCurrentIndex(tab);
  }
}

void ObjectDisplay::readLocomotorTab(int tab) {
  const ParserTurn turn(parser_);
  if (turn) {
    const TypedMarks::Reading reading = typed_.readsHandling();
    showLocomotorOf(tab);
  } else {
    fields_.LocoTab->setCurrentIndex(shownTab_);
  }
  Select(*fields_.CboLoco, fields_.LocoTab->currentIndex());
}

void ObjectDisplay::showLocomotorOf(int tab) {
  shownTab_ = tab;
  FieldSink sink(fields_);
  parser_.GetLocomotorData(selectedObject(), tab + 1, 0, kHandlingFields - 1, sink);
  if (tab >= 0) ShowText(*fields_.CboLocomotor, TabCaption(*fields_.LocoTab, tab));
  information_.UpdateLV();
}

void ObjectDisplay::renameLocomotorTab(const QString& name) {
  SetTabCaption(*fields_.LocoTab, fields_.LocoTab->currentIndex(), name);
}

void ObjectDisplay::clearHandlingField(std::size_t field) {
  fields_.HS_TextBox[field]->showTemplate();
}

QString CleanWeaponName(const QString& text) {
  return IsNoWeapon(ToBytes(text)) ? QString() : text;
}

}  // namespace korvane
