// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/SearchRows.h"

#include <QAction>

#include <algorithm>
#include <array>

#include "app/CatalogueService.h"
#include "catalogue/NameSearch.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr std::size_t kMostItems = 60;
constexpr std::size_t kMostFiles = 10;
constexpr std::size_t kMostCommands = 8;
constexpr std::size_t kMostChosen = 10;

// A letter before a colon, and the kinds that it stands for, by the game's names with blanks between.
struct Prefix {
  char letter;
  const char* kinds;
  const char* meaning;
};
constexpr std::array kPrefixes = {
    Prefix{'o', "Object ObjectReskin", "objects"},
    Prefix{'w', "Weapon", "weapons"},
    Prefix{'a', "Armor", "armours"},
    Prefix{'l', "Locomotor", "locomotors"},
    Prefix{'s', "CommandSet", "command sets"},
    Prefix{'b', "CommandButton", "command buttons"},
    Prefix{'u', "Upgrade", "upgrades"},
    Prefix{'c', "Science", "sciences"},
};

std::vector<KindId> KindsOf(const Prefix& prefix) {
  std::vector<KindId> kinds;
  for (const QString& name : QString(prefix.kinds).split(' ')) {
    kinds.push_back(GameStructure::get().kind(name.toStdString()));
  }
  return kinds;
}

// Takes "w:" off the front of what is typed.
const Prefix* TakePrefix(QString& typed) {
  if (typed.size() < 2 || typed[1] != ':') return nullptr;
  const char letter = typed[0].toLower().toLatin1();
  const auto* found = std::find_if(kPrefixes.begin(), kPrefixes.end(),
                                   [letter](const Prefix& prefix) { return prefix.letter == letter; });
  if (found == kPrefixes.end()) return nullptr;
  typed = typed.mid(2).trimmed();
  return found;
}

SearchRow RowOfLine(int line, bool hasLines) {
  if (!hasLines) return {SearchRow::What::hint, "A line of the open file", "works in the manual editor"};
  if (line <= 0) return {SearchRow::What::hint, ":120", "a line of the open file"};
  SearchRow row{SearchRow::What::line, QStringLiteral("Line %1").arg(line), {}, "in the open file"};
  row.item.place.line = line;
  return row;
}

QString PlainCaption(const QAction& action) {
  QString caption = action.text();
  return caption.remove('&');
}

// A menu and a context menu may each have an action of the same command.
bool IsOffered(const QAction& action, const std::vector<SearchRow>& rows) {
  const auto same = [caption = PlainCaption(action)](const SearchRow& row) {
    return row.what == SearchRow::What::command && row.name == caption;
  };
  return action.isEnabled() && std::ranges::none_of(rows, same);
}

void AddCommands(std::vector<SearchRow>& rows, const QString& pattern, const QList<QAction*>& commands) {
  const NameMatcher matcher(ToBytes(pattern));
  std::size_t added = 0;
  for (QAction* action : commands) {
    const std::string caption = ToBytes(PlainCaption(*action));
    if (added == kMostCommands || !IsOffered(*action, rows) || !matcher.rank(caption)) continue;
    SearchRow row{SearchRow::What::command, FromBytes(caption), "Command",
                  action->shortcut().toString(QKeySequence::NativeText), matcher.parts(caption)};
    row.command = action;
    rows.push_back(std::move(row));
    ++added;
  }
}

bool SameChoice(const SearchRow& a, const SearchRow& b) {
  return a.what == b.what && a.name == b.name && a.item.kind == b.item.kind;
}

}  // namespace

void SearchRows::addItems(std::vector<SearchRow>& rows, const QString& pattern,
                          std::vector<KindId> kinds) const {
  const std::string bytes = ToBytes(pattern);
  const NameMatcher matcher(bytes);
  const CataloguePtr names = names_.withUnsaved();
  const NameHits found = SearchNames(*names, {bytes, std::move(kinds), kMostItems});
  for (const NameHit& hit : found.hits) {
    SearchRow row{SearchRow::What::item};
    row.item = ItemOf(hit.definition);
    row.name = row.item.name;
    row.kind = KindName(row.item.kind);
    row.where = ShownPlace(row.item.place);
    row.marks = matcher.parts(hit.definition.name);
    rows.push_back(std::move(row));
  }
}

void SearchRows::addFiles(std::vector<SearchRow>& rows, const QString& pattern) const {
  const NameMatcher matcher(ToBytes(pattern));
  std::size_t added = 0;
  for (const auto& file : names_.catalogue()->files()) {
    const std::string_view path = file->source().path;
    const std::string_view name = path.substr(path.find_last_of("/\\") + 1);
    if (added == kMostFiles || !matcher.rank(name)) continue;
    SearchRow row{SearchRow::What::file, FromBytes(name), "File", FromBytes(path), matcher.parts(name)};
    row.item.place = PlaceOf(*file, 1, 1, 0);
    rows.push_back(std::move(row));
    ++added;
  }
}

std::vector<SearchRow> SearchRows::start(const WindowOffers& offers) const {
  std::vector<SearchRow> rows = chosen_;
  for (const Prefix& prefix : kPrefixes) {
    rows.push_back({SearchRow::What::hint, QStringLiteral("%1:").arg(QChar(prefix.letter)), prefix.meaning});
  }
  if (offers.hasLines) rows.push_back(RowOfLine(0, true));
  return rows;
}

std::vector<SearchRow> SearchRows::find(const QString& typed, const WindowOffers& offers) const {
  QString pattern = typed.trimmed();
  if (pattern.isEmpty()) return start(offers);
  if (pattern.startsWith(':')) return {RowOfLine(pattern.mid(1).toInt(), offers.hasLines)};
  std::vector<SearchRow> rows;
  const Prefix* prefix = TakePrefix(pattern);
  const bool read = names_.catalogue() != nullptr;
  if (read) addItems(rows, pattern, prefix == nullptr ? std::vector<KindId>() : KindsOf(*prefix));
  if (prefix == nullptr && read) addFiles(rows, pattern);
  if (prefix == nullptr) AddCommands(rows, pattern, offers.commands);
  if (!read) rows.push_back({SearchRow::What::hint, "Reading the names...", {}});
  return rows;
}

void SearchRows::remember(const SearchRow& row) {
  if (row.what != SearchRow::What::item && row.what != SearchRow::What::file) return;
  std::erase_if(chosen_, [&row](const SearchRow& other) { return SameChoice(row, other); });
  chosen_.insert(chosen_.begin(), row);
  chosen_.front().marks.clear();
  if (chosen_.size() > kMostChosen) chosen_.pop_back();
}

}  // namespace korvane
