// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/LastView.h"

#include <QSet>
#include <QTabWidget>
#include <QTreeView>

#include "controls/InPlaceTable.h"
#include "mainwindow/ObjectTreeModel.h"
#include "mainwindow/UnitFields.h"
#include "settings/SettingsStore.h"

namespace korvane {

namespace {

const QString kSection = QStringLiteral("Last View");
const QString kExpanded = QStringLiteral("Expanded Groups");
constexpr QChar kBetween = u'|';

// A stored whole number; -1 for anything else.
int NumberOf(const SettingsStore& settings, const QString& key) {
  bool isNumber = false;
  const int number = settings.get(kSection, key, {}).toInt(&isNumber);
  return isNumber ? number : -1;
}

}  // namespace

QString LastView::pathOf(const QModelIndex& index) const {
  if (!index.isValid()) return {};
  return pathOf(index.parent()) + kBetween + ObjectTreeModel::shownText(*objects_.node(index));
}

void LastView::forEachBelow(const QModelIndex& group, const QString& path, const Visit& visit) const {
  for (int row = 0; row < objects_.rowCount(group); ++row) {
    const QModelIndex index = objects_.index(row, 0, group);
    const QString ownPath = path + kBetween + ObjectTreeModel::shownText(*objects_.node(index));
    visit(index, ownPath);
    if (objects_.rowCount(index) > 0) forEachBelow(index, ownPath, visit);
  }
}

QStringList LastView::expandedGroups() const {
  QStringList groups;
  forEachBelow({}, {}, [&](const QModelIndex& index, const QString& path) {
    if (tree_.isExpanded(index)) groups += path;
  });
  return groups;
}

void LastView::save() const {
  const SettingsStore::Batch batch(settings_);
  settings_.deleteSection(kExpanded);
  settings_.SaveList(kExpanded, expandedGroups());
  settings_.save(kSection, "Object", pathOf(tree_.selectionModel()->selectedIndexes().value(0)));
  settings_.save(kSection, "Tab", QString::number(fields_.F_Tab->currentIndex()));
  settings_.save(kSection, "Row", QString::number(fields_.LstInfo->rowAt(0)));
}

void LastView::restore(const std::function<void(const QModelIndex&)>& select) const {
  if (!FlagOf(settings_.GetSet("RestoreLast", "0")).value_or(false)) return;
  const QModelIndex selected =
      expandAndFind(settings_.LoadList(kExpanded), settings_.get(kSection, "Object", {}));
  if (selected.isValid()) {
    tree_.setCurrentIndex(selected);
    tree_.scrollTo(selected);
    select(selected);
  }
  restoreTabAndRow();
}

// Expands the groups and gives the node of the path; of several, the first.
QModelIndex LastView::expandAndFind(const QStringList& expanded, const QString& selected) const {
  const QSet<QString> groups(expanded.begin(), expanded.end());
  QModelIndex found;
  forEachBelow({}, {}, [&](const QModelIndex& index, const QString& path) {
    if (groups.contains(path)) tree_.expand(index);
    if (!found.isValid() && path == selected) found = index;
  });
  return found;
}

// Showing an object has brought the tab of the settings to the front.
void LastView::restoreTabAndRow() const {
  const int tab = NumberOf(settings_, "Tab");
  if (tab >= 0 && tab < fields_.F_Tab->count()) fields_.F_Tab->setCurrentIndex(tab);
  const QModelIndex row = fields_.LstInfo->model()->index(NumberOf(settings_, "Row"), 0);
  if (row.isValid()) fields_.LstInfo->scrollTo(row, QAbstractItemView::PositionAtTop);
}

}  // namespace korvane
