// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/TableEditor.h"

#include <QCloseEvent>
#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "app/EditorLauncher.h"
#include "app/ManualEditRequest.h"
#include "app/NameTips.h"
#include "app/SearchCommands.h"
#include "controls/Icons.h"
#include "controls/MenuButton.h"
#include "controls/NoticeBar.h"
#include "controls/Placement.h"
#include "controls/ShownText.h"
#include "editors/ListAndTable.h"
#include "editors/NearestNames.h"
#include "ini/Blocks.h"
#include "platform/EventYield.h"
#include "platform/MessageBoxes.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr std::array<MenuRow, 3> kMenuBar = {{{0, "MnuFile", "&File"}, {1, "MnuManEd"}, {1, "MnuExit"}}};
constexpr std::array kPopup = {"PopManEd"};

// Of a window that was never closed, in pixels.
constexpr int kWidth = 860;  // at least, or the list would be narrow
constexpr int kHeight = 480;
constexpr QSize kLeastSize(400, 260);

// Behind the given entry of the context menu.
constexpr const char* kNameCommands[] = {"showInFile",     "editInFile", "readAgain", "",
                                         "goToDefinition", "findUses",   "namesUsed"};

// The parts of the notice bar.
enum Notices { soughtNotices, entryNotices, typedNotices, editNotices, readAgainNotices };

bool BeginsWithWord(const QString& text, const QString& word) {
  if (word.isEmpty() || !text.startsWith(word, Qt::CaseInsensitive)) return false;
  const QChar next = text.size() > word.size() ? text[word.size()] : QChar(' ');
  return !next.isLetterOrNumber() && next != QLatin1Char('_');
}

// Each name is folded once, not at every comparison.
void SortIgnoringCase(QStringList& names) {
  std::vector<std::pair<QString, QString>> folded;
  folded.reserve(static_cast<std::size_t>(names.size()));
  for (const QString& name : names) folded.emplace_back(name.toCaseFolded(), name);
  std::stable_sort(folded.begin(), folded.end(),
                   [](const auto& a, const auto& b) { return a.first < b.first; });
  std::transform(folded.begin(), folded.end(), names.begin(), [](const auto& pair) { return pair.second; });
}

}  // namespace

TableEditor::TableEditor(const TableEditorEntry& entry, const TableEditorContext& context)
    : entry_(entry), context_(context), pane_(new ListAndTable), notices_(new NoticeBar) {
  setObjectName(entry.window);
  setWindowTitle(entry.title);
  setWindowIcon(ApplicationIcon());
  makeMenus();
  pane_->list().setModel(&names_);
  connect(&pane_->list(), &QListView::clicked, this, &TableEditor::showEntry);
  connect(&table(), &InPlaceTable::typedChanged, this, &TableEditor::tellTyped);
  setCentralWidget(NoticeBar::below(pane_, notices_));
  makeColumns();
  tellOfNames();
  pane_->list().setFocus();
}

// A cell that is being typed into is taken when its table goes, which is after this window.
TableEditor::~TableEditor() {
  table().disconnect(this);
}

InPlaceTable& TableEditor::table() {
  return pane_->table();
}

void TableEditor::makeMenus() {
  for (const char* name : {"MnuManEd", "PopManEd"})
    commands_.add(name, entry_.manualEditCaption, {}, [this] { editInManualEditor(); });
  commands_.add("MnuExit", "E&xit", {}, [this] { close(); });
  FillMenuBar(*menuBar(), commands_, kMenuBar);

  auto* popup = new QMenu("PopupMenu", this);
  popup->setObjectName("MnuPop");
  FillMenu(*popup, commands_, kPopup);
  AddSearchCommands(commands_, [this](SearchCommand command) { context_.launcher.search(command, *this); });
  commands_.add("showInFile", "Show in &File", "F6", [this] { showInFile(); });
  commands_.add("editInFile", "Edit in Fi&le", "Shift+F6", [this] { editInFile(); });
  commands_.add("readAgain", "&Read Again", "F5", [this] { fillAgain(); });
  FillMenu(*popup, commands_, kNameCommands);
  const auto show = [popup](const QPoint& at) { popup->popup(at); };
  for (QAbstractItemView* view :
       {static_cast<QAbstractItemView*>(&pane_->list()), static_cast<QAbstractItemView*>(&pane_->table())}) {
    // Queued: the view first selects what the button went down on.
    connect(new MenuButton(*view), &MenuButton::pressed, popup, show, Qt::QueuedConnection);
  }
}

void TableEditor::makeColumns() {
  int twips = 0;
  for (const TableColumn& column : entry_.columns) {
    table().addColumn(column.caption, column.width);
    twips += column.width;
  }
  table().setUp(1);
  setMinimumSize(kLeastSize);
  resize(std::max(kWidth, pane_->widthFor(twips)), kHeight);
}

void TableEditor::load() {
  if (std::exchange(loaded_, true)) return;
  const WindowCalls::Running call(calls_);
  // Goes on when the parser is taken too: the names are read with a reader of this window's own.
  const ParserTurn turn(context_.parser);
  RestorePlacement(context_.services.settings, *this);
  fillList(readNames());
}

QStringList TableEditor::readNames() {
  QStringList names;
  TVItem reader(context_.parser.yield());
  reader.YieldsPerLine = entry_.yieldsPerLine;
  ReadHeaders(reader, IniPath(context_.parser.gameFolder(), entry_.file), entry_.kind,
              [&](const HeaderLine& header) {
                if (header.name) names << FromBytes(*header.name);
              });
  return names;
}

void TableEditor::fillList(QStringList names) {
  const QString first = names.value(0);
  if (entry_.sorted) SortIgnoringCase(names);
  names_.setStringList(names);
  pane_->fitRows(names);
  if (selectsFirst()) select(names_.index(static_cast<int>(names.indexOf(first))));
}

void TableEditor::select(const QModelIndex& entry) {
  settled_ = entry;
  pane_->list().setCurrentIndex(entry);
  if (!entry.isValid()) pane_->list().clearSelection();
}

void TableEditor::selectEntry(const QString& name) {
  const QStringList names = names_.stringList();
  const auto found = std::find_if(names.begin(), names.end(),
                                  [&](const QString& entry) { return BeginsWithWord(entry, name); });
  const QModelIndex entry =
      found == names.end() ? QModelIndex() : names_.index(static_cast<int>(found - names.begin()));
  select(entry);
  if (entry_.soughtNoun != nullptr) tellSought(name, entry);
}

// Selecting does not fill the table, and the user may take what stands there for the selected entry.
void TableEditor::tellSought(const QString& name, const QModelIndex& found) {
  const auto showing = [this](const QString& entry) { return [this, entry] { showNamed(entry); }; };
  if (name.isEmpty()) return notices_->clear(soughtNotices);
  if (found.isValid()) {
    const QString entry = found.data().toString();
    return notices_->tell(soughtNotices, {Notice().link("Show '" + ShownText(entry) + "'", showing(entry))});
  }
  const QString file = QString::fromUtf8(entry_.file);
  Notice notice(QString("%1 has no %2 '%3'.").arg(file, entry_.soughtNoun, ShownText(name)));
  const QStringList nearest = NearestNames(name, names_.stringList());
  for (const QString& entry : nearest) {
    notice.say(entry == nearest.first() ? " Is it " : " or ").link(ShownText(entry), showing(entry));
  }
  if (!nearest.isEmpty()) notice.say("?");
  notices_->tell(soughtNotices, {notice});
}

// As a click on the entry.
void TableEditor::showNamed(const QString& name) {
  const auto row = names_.stringList().indexOf(name);
  if (row < 0) return;
  pane_->list().setCurrentIndex(names_.index(static_cast<int>(row)));
  showEntry(names_.index(static_cast<int>(row)));
}

bool TableEditor::clickEntry(const QString& name) {
  const QStringList names = names_.stringList();
  const auto found = std::find_if(names.begin(), names.end(), [&](const QString& entry) {
    return entry.compare(name, Qt::CaseInsensitive) == 0;
  });
  if (found == names.end()) return false;
  const QModelIndex entry = names_.index(static_cast<int>(found - names.begin()));
  pane_->list().setCurrentIndex(entry);
  showEntry(entry);
  return true;
}

void TableEditor::tellOfNames() {
  TellOfNames(pane_->list(), context_.launcher,
              [this](const QModelIndex& entry) { return nameOf(entry.data().toString()); });
  TellOfNames(table(), context_.launcher, [this](const QModelIndex& cell) {
    const auto name = nameAt(cell);
    return name && name->space != kNoSpace ? name : std::nullopt;
  });
}

NameHere TableEditor::nameOf(const QString& entry) const {
  return {entry, GameStructure::get().space(entry_.kind)};
}

std::optional<NameHere> TableEditor::nameHere() const {
  if (!pane_->list().hasFocus()) return nameAt(pane_->table().currentIndex());
  const auto name = selectedName();
  return name ? std::optional(nameOf(*name)) : std::nullopt;
}

// The name in the value of a table's row.
std::optional<NameHere> TableEditor::nameAt(const QModelIndex& cell) const {
  const QString value = cell.siblingAtColumn(1).data().toString().trimmed();
  if (value.isEmpty()) return std::nullopt;
  const QString caption = cell.siblingAtColumn(0).data().toString();
  const auto field = TableField(entry_.kind, ToBytes(caption));
  return NameInValue(entry_.kind, field ? FromBytes(field->key) : caption, value);
}

std::optional<ItemPlace> TableEditor::placeHere() const {
  const auto name = selectedName();
  if (!name || name->isEmpty()) return std::nullopt;
  const QString path = "Data\\INI\\" + QString::fromUtf8(entry_.file);
  return ItemPlace{GameStructure::get().kind(entry_.kind), *name, {.path = path}};
}

std::optional<QString> TableEditor::selectedName() const {
  const QModelIndexList selected = pane_->list().selectionModel()->selectedIndexes();
  if (selected.isEmpty()) return std::nullopt;
  return selected.first().data().toString();
}

void TableEditor::showEntry(const QModelIndex& entry) {
  const WindowCalls::Running call(calls_);
  const ParserTurn turn(context_.parser);
  if (!turn) {
    select(settled_);
    return;
  }
  settled_ = entry;
  notices_->clear(soughtNotices);
  const QString name = entry.data().toString();
  // "[*]" means something to Qt unless it is written twice.
  const QString shown = ShownText(name).replace(QLatin1String("[*]"), QLatin1String("[*][*]"));
  setWindowTitle(shown + QStringLiteral(" - ") + entry_.title);
  fillTable(name);
}

void TableEditor::fillTable(const QString& name) {
  const std::string text = (context_.parser.*entry_.fill)(ToBytes(name), table());
  shown_ = name;
  table().setAllCaptionsRedAndBold();
  table().finish();
  notices_->clear(readAgainNotices);
  tellAboutEntry(name, text);
}

void TableEditor::fileSaved(const QString& file) {
  const bool isShown = shown_ && file.compare(shownField(*shown_).file, Qt::CaseInsensitive) == 0;
  if (isShown) again_.start();
}

bool TableEditor::readAgain() {
  if (calls_.isClosed()) return true;
  if (const ParserTurn turn(context_.parser); !turn) return false;
  if (takeSavedAsRead()) return fillAgain();
  notices_->tell(readAgainNotices, {ReadAgainNotice(shownField(*shown_).file, [this] { fillAgain(); })});
  return true;
}

// False while the parser is taken.
bool TableEditor::fillAgain() {
  if (!shown_) return true;
  const WindowCalls::Running call(calls_);
  const ParserTurn turn(context_.parser);
  if (!turn) return false;
  const EventYield::HeldInput held(context_.services.yield);
  const InPlaceTable::KeptPlace place(table());
  fillTable(QString(*shown_));
  return true;
}

// False when something else is typed too, or is about to be.
bool TableEditor::takeSavedAsRead() {
  const std::vector<bool> saved = ShownByFile(typedValues());
  std::size_t value = 0;
  for (int row = 0; row < table().rowCount(); ++row) {
    if (table().row(row).read && saved[value++]) table().takeAsRead(row);
  }
  return !table().hasTyped() && !table().isEditing();
}

ShownField TableEditor::shownField(const QString& name) const {
  const QString file =
      DataFilePath(context_.services.folders, DataFolder::ini, QString::fromUtf8(entry_.file));
  return {file, {entry_.kind, ToBytes(name)}, {}};
}

ShownField TableEditor::shownField(int row) const {
  std::size_t before = 0;
  const QString& caption = pane_->table().row(row).caption;
  for (int i = 0; i < row; ++i) before += pane_->table().row(i).caption == caption ? 1 : 0;
  ShownField shown = shownField(shown_.value_or(QString()));
  shown.field = RowField(entry_.kind, ToBytes(caption), before);
  return shown;
}

std::vector<TypedValue> TableEditor::typedValues() const {
  std::vector<TypedValue> values;
  for (int row = 0; row < pane_->table().rowCount(); ++row) {
    const InPlaceTableModel::Row& each = pane_->table().row(row);
    if (each.read) values.push_back({each.caption.trimmed(), shownField(row), each.value});
  }
  return values;
}

void TableEditor::editInFile() {
  const WindowCalls::Running call(calls_);
  const std::vector<TypedValue> values = typedValues();
  if (values.empty()) return showInFile();
  std::vector<Notice> notices = EditInFile(values, context_.launcher, context_.services.messages, *this);
  if (table().hasInserted())
    notices.emplace_back("A row that was inserted has no value, and no line in the file.");
  notices_->tell(editNotices, std::move(notices));
}

// The selected row of the table when that has the keyboard, else the selected entry.
void TableEditor::showInFile() {
  const QModelIndex cell = pane_->table().currentIndex();
  if (pane_->table().hasFocus() && cell.isValid())
    return ShowInFile(shownField(cell.row()), context_.launcher);
  if (const auto name = selectedName()) ShowInFile(shownField(*name), context_.launcher);
}

void TableEditor::tellTyped() {
  notices_->clear(editNotices);  // said of what was typed before
  if (!table().hasTyped()) return notices_->clear(typedNotices);
  Notice notice("What is typed here is not saved.");
  if (!typedValues().empty()) notice.say(" ").link("Edit in file", [this] { editInFile(); });
  notices_->tell(typedNotices, {notice});
}

void TableEditor::tellAboutEntry(const QString& name, const std::string& text) {
  if (name.isEmpty()) return notices_->tell(entryNotices, {Notice("This entry has no name.")});
  const QString file = QString::fromStdString(IniPath(context_.parser.gameFolder(), entry_.file).text());
  ShownBlock block;
  std::vector<Notice> notices = ReadNotices({file, entry_.kind, name}, context_.launcher, block);
  for (Notice& notice : noticesOf(text, block, file)) notices.push_back(std::move(notice));
  notices_->tell(entryNotices, std::move(notices));
}

std::vector<Notice> TableEditor::noticesOf(const std::string& /*text*/, const ShownBlock& /*block*/,
                                           const QString& /*file*/) const {
  return {};
}

std::optional<std::string> TableEditor::readBlock(const QString& name) {
  const ParserTurn turn(context_.parser);
  if (!turn) return std::nullopt;
  context_.parser.ObjectName = ToBytes(name);
  const std::string text = context_.parser.GetObjectText(entry_.kind, entry_.file);
  return entry_.trimsBlock ? std::string(TrimSpaces(text)) : text;
}

void TableEditor::editInManualEditor() {
  const WindowCalls::Running call(calls_);
  const auto name = selectedName();
  if (name && name->isEmpty() && entry_.needsName) {
    context_.services.messages.show({.text = "This entry has no name."}, this);
    return;
  }
  ManualEditRequest request;
  if (name) request.text = readBlock(*name);
  if (!request.text) return;
  SetManualEditFile(request, context_.services.folders, 1, DataFolder::ini, QString::fromUtf8(entry_.file));
  context_.launcher.showManualEditor(request);
}

void TableEditor::closeEvent(QCloseEvent* event) {
  SavePlacement(context_.services.settings, *this);
  event->accept();
  calls_.close();
}

}  // namespace korvane
