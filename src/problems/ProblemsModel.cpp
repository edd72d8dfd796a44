// SPDX-License-Identifier: GPL-3.0-or-later
#include "problems/ProblemsModel.h"

#include <QIcon>

#include <algorithm>
#include <cstdlib>
#include <map>

#include "app/Places.h"
#include "check/Baseline.h"
#include "check/Rules.h"
#include "controls/Icons.h"
#include "controls/ShownText.h"

namespace korvane {

namespace {

QString Utf8(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

QString TitleOf(const Finding& finding, ProblemsView::Grouping grouping) {
  if (grouping == ProblemsView::Grouping::file) return ShownPath(FilePathOf(finding));
  const Rule* rule = FindRule(finding.code);
  const QString code = Utf8(finding.code);
  return rule == nullptr ? code : QStringLiteral("%1: %2").arg(code, Utf8(rule->meaning));
}

QString HintOf(const Finding& finding) {
  QString hint = Utf8(finding.text);
  if (finding.other.line > 0) {
    hint += QStringLiteral("\nSee also %1, line %2").arg(Utf8(finding.other.file)).arg(finding.other.line);
  }
  return hint;
}

QString CellOf(const Finding& finding, int column) {
  switch (column) {
    case ProblemsModel::text:
      return QStringLiteral("%1 [%2]").arg(Utf8(finding.text), Utf8(finding.code));
    case ProblemsModel::file:
      return ShownPath(FilePathOf(finding));
    default:
      return QString::number(finding.line);
  }
}

}  // namespace

QString FilePathOf(const Finding& finding) {
  return Utf8(finding.file).replace('/', '\\');
}

QString LineOf(const Finding& finding) {
  return QStringLiteral("%1:%2:%3: %4: %5 [%6]")
      .arg(Utf8(finding.file), QString::number(finding.line), QString::number(finding.column),
           Utf8(LevelName(finding.level)), Utf8(finding.text), Utf8(finding.code));
}

QString IconNameOf(Level level) {
  return Utf8(LevelName(level));
}

namespace {

bool IsShown(const Finding& finding, const ProblemsView& view) {
  if (!view.levels[static_cast<std::size_t>(finding.level)]) return false;
  return view.filter.isEmpty() || LineOf(finding).contains(view.filter, Qt::CaseInsensitive) ||
         FilePathOf(finding).contains(view.filter, Qt::CaseInsensitive);
}

}  // namespace

void ProblemsModel::group(const ProblemsView& view) {
  std::map<QString, std::size_t> places;
  for (const Finding& finding : result_->findings) {
    if (!IsShown(finding, view)) continue;
    const QString title = TitleOf(finding, view.grouping);
    const auto [place, isNew] = places.try_emplace(title, groups_.size());
    if (isNew) groups_.push_back({title, {}});
    groups_[place->second].findings.push_back(&finding);
  }
  if (view.grouping == ProblemsView::Grouping::code) {
    std::ranges::sort(groups_, {}, &Group::title);
    // What one mend mends stands together.
    for (Group& each : groups_) std::ranges::stable_sort(each.findings, {}, &Finding::group);
  }
}

void ProblemsModel::show(DataCheck::ResultPtr result, const ProblemsView& view) {
  beginResetModel();
  result_ = std::move(result);
  groups_.clear();
  if (result_ != nullptr) group(view);
  endResetModel();
}

const Finding* ProblemsModel::finding(const QModelIndex& index) const {
  if (!index.isValid() || index.internalId() == 0) return nullptr;
  return groups_[index.internalId() - 1].findings[static_cast<std::size_t>(index.row())];
}

QModelIndex ProblemsModel::indexOf(const Finding& wanted) const {
  const std::string stable = StableTextOf(wanted);
  QModelIndex best;
  int bestDistance = 0;
  for (std::size_t group = 0; group < groups_.size(); ++group) {
    const auto& findings = groups_[group].findings;
    for (std::size_t row = 0; row < findings.size(); ++row) {
      const int distance = std::abs(findings[row]->line - wanted.line);
      const bool nearer = !best.isValid() || distance < bestDistance;
      if (!nearer || StableTextOf(*findings[row]) != stable) continue;
      best = createIndex(static_cast<int>(row), 0, group + 1);
      bestDistance = distance;
    }
  }
  return best;
}

int ProblemsModel::shown() const {
  std::size_t all = 0;
  for (const Group& group : groups_) all += group.findings.size();
  return static_cast<int>(all);
}

int ProblemsModel::findingsBefore(const QModelIndex& finding) const {
  std::size_t before = 0;
  for (std::size_t group = 0; group + 1 < finding.internalId(); ++group)
    before += groups_[group].findings.size();
  return static_cast<int>(before) + finding.row();
}

QModelIndex ProblemsModel::findingBehind(int count) const {
  if (count < 0) return {};
  for (std::size_t group = 0; group < groups_.size(); ++group) {
    const int size = static_cast<int>(groups_[group].findings.size());
    if (count < size) return createIndex(count, 0, group + 1);
    count -= size;
  }
  return {};
}

// The id of an index: 0 for a group, else the number of its group, from 1.
QModelIndex ProblemsModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  return createIndex(row, column, parent.isValid() ? static_cast<quintptr>(parent.row()) + 1 : 0);
}

QModelIndex ProblemsModel::parent(const QModelIndex& child) const {
  if (!child.isValid() || child.internalId() == 0) return {};
  return createIndex(static_cast<int>(child.internalId()) - 1, 0, quintptr{0});
}

int ProblemsModel::rowCount(const QModelIndex& parent) const {
  if (!parent.isValid()) return static_cast<int>(groups_.size());
  if (parent.internalId() != 0 || parent.column() != 0) return 0;
  return static_cast<int>(groups_[static_cast<std::size_t>(parent.row())].findings.size());
}

QVariant ProblemsModel::groupData(const Group& group, const QModelIndex& index, int role) const {
  if (index.column() != text) return {};
  if (role == titleRole) return group.title;
  if (role != Qt::DisplayRole) return {};
  return QStringLiteral("%1 (%2)").arg(group.title).arg(group.findings.size());
}

QVariant ProblemsModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Finding* found = finding(index);
  if (found == nullptr) return groupData(groups_[static_cast<std::size_t>(index.row())], index, role);
  switch (role) {
    case Qt::DisplayRole:
      return CellOf(*found, index.column());
    case Qt::DecorationRole:
      return index.column() == text ? QVariant(ThemeIcon(IconNameOf(found->level))) : QVariant();
    case Qt::ToolTipRole:
      return PlainToolTip(HintOf(*found));
    case Qt::AccessibleTextRole:
      return index.column() == text ? Utf8(LevelName(found->level)) + ": " + CellOf(*found, text)
                                    : CellOf(*found, index.column());
    case Qt::TextAlignmentRole:
      return index.column() == line ? QVariant(Qt::AlignRight | Qt::AlignVCenter) : QVariant();
    default:
      return {};
  }
}

QVariant ProblemsModel::headerData(int section, Qt::Orientation orientation, int role) const {
  constexpr std::array kCaptions = {"Text", "File", "Line"};
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole) return {};
  return kCaptions.at(static_cast<std::size_t>(section));
}

}  // namespace korvane
