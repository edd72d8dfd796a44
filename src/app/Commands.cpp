// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Commands.h"

#include <QMenu>
#include <QMenuBar>

#include <algorithm>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace korvane {

namespace {

void AddCommand(QMenu& menu, const Commands& commands, std::string_view name) {
  if (name.empty()) {
    menu.addSeparator();
  } else {
    menu.addAction(&commands.action(QString::fromUtf8(name)));
  }
}

}  // namespace

QAction& Commands::add(const QString& name, const QString& caption, const QString& shortcut) {
  auto* action = new QAction(caption, &window_);
  action->setObjectName(name);
  action->setShortcut(QKeySequence(shortcut));
  if (around_ != nullptr) action->setShortcutContext(Qt::WidgetShortcut);
  add(*action);
  return *action;
}

void Commands::add(QAction& action) {
  window_.addAction(&action);
  actions_ += &action;
}

void Commands::add(const QString& name, const QString& caption, const QString& shortcut,
                   std::function<void()> run) {
  QObject::connect(&add(name, caption, shortcut), &QAction::triggered, &window_, std::move(run));
}

QAction* Commands::find(const QString& name) const {
  const auto found = std::find_if(actions_.begin(), actions_.end(),
                                  [&](const QAction* action) { return action->objectName() == name; });
  if (found != actions_.end()) return *found;
  return around_ == nullptr ? nullptr : around_->find(name);
}

QAction& Commands::action(const QString& name) const {
  QAction* found = find(name);
  if (found == nullptr) throw std::logic_error("no command " + name.toStdString());
  return *found;
}

void FillMenuBar(QMenuBar& bar, const Commands& commands, std::span<const MenuRow> rows) {
  std::vector<QMenu*> open;
  for (const MenuRow& row : rows) {
    open.resize(static_cast<std::size_t>(row.depth));
    if (*row.menuCaption == '\0') {
      AddCommand(*open.back(), commands, row.name);
    } else {
      open.push_back(open.empty() ? bar.addMenu(row.menuCaption) : open.back()->addMenu(row.menuCaption));
      open.back()->setObjectName(row.name);
    }
  }
}

void FillMenu(QMenu& menu, const Commands& commands, std::span<const char* const> names) {
  for (const char* name : names) AddCommand(menu, commands, name);
}

}  // namespace korvane
