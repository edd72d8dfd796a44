// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAction>
#include <QList>
#include <QString>

#include <functional>
#include <span>

class QMenu;
class QMenuBar;
class QWidget;

namespace korvane {

// A row of a window's table of commands. `Target` is the class or interface that carries them out.
template <typename Target>
struct Command {
  const char* name;                 // of its action
  const char* caption;              // with its mnemonic
  void (Target::*run)() = nullptr;  // none: the command is always disabled
  const char* shortcut = "";        // as QKeySequence reads it
  bool checkable = false;
};

// The commands of one window: an action for each row of its tables, in their order. Menus, context menus,
// toolbars and searches show these actions and know nothing else of a command.
class Commands {
 public:
  // The window owns the actions.
  explicit Commands(QWidget& window) : window_(window) {}
  // The commands of a view in a window: their shortcuts hold while the view has the keyboard. The window's
  // own are found here too, for the view's context menu.
  Commands(QWidget& view, const Commands& ofWindow) : window_(view), around_(&ofWindow) {}
  Commands(const Commands&) = delete;
  Commands& operator=(const Commands&) = delete;

  template <typename Target>
  void add(std::span<const Command<Target>> table, Target& target) {
    for (const Command<Target>& row : table) {
      QAction& action = add(row.name, row.caption, row.shortcut);
      action.setEnabled(row.run != nullptr);
      action.setCheckable(row.checkable);
      if (row.run == nullptr) continue;
      QObject::connect(&action, &QAction::triggered, &window_, [&target, run = row.run] { (target.*run)(); });
    }
  }
  void add(const QString& name, const QString& caption, const QString& shortcut, std::function<void()> run);
  // One that somebody else made and keeps up to date, by the name that it has.
  void add(QAction& action);

  QAction* find(const QString& name) const;  // nullptr when there is none
  // A name that no row has is a std::logic_error: the tables belong to the program.
  QAction& action(const QString& name) const;
  // In the order of the tables.
  const QList<QAction*>& all() const { return actions_; }

 private:
  QAction& add(const QString& name, const QString& caption, const QString& shortcut);

  QWidget& window_;
  const Commands* around_ = nullptr;
  QList<QAction*> actions_;
};

// A row of a menu bar: a menu (it has a caption and holds the deeper rows after it), a command by its name,
// or a separator.
struct MenuRow {
  int depth;  // 0 stands in the bar itself
  const char* name = "";
  const char* menuCaption = "";
};

void FillMenuBar(QMenuBar& bar, const Commands& commands, std::span<const MenuRow> rows);

// Adds commands by their names; an empty one is a separator.
void FillMenu(QMenu& menu, const Commands& commands, std::span<const char* const> names);

}  // namespace korvane
