// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/SearchDesk.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>

#include "app/CatalogueService.h"
#include "platform/TextEncoding.h"
#include "search/FindAnything.h"
#include "search/SearchRows.h"

namespace korvane {

void SearchDesk::addField(QMainWindow& window, std::function<QList<QAction*>()> commands) {
  QLineEdit* field = FindAnything::makeField();
  field->setFocusPolicy(Qt::ClickFocus);
  auto* corner = new QWidget;
  auto* layout = new QHBoxLayout(corner);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(field);
  // The menu bar stays as high as it is without the field.
  const int height = window.menuBar()->sizeHint().height();
  field->setFixedHeight(height);
  corner->setFixedHeight(height);
  window.menuBar()->setCornerWidget(corner);
  new FindAnything(window, {rows_, places_, std::move(commands), {}}, field);
}

void SearchDesk::addPopup(QMainWindow& window, std::function<void(int)> goToLine) {
  const auto commands = [&window] {
    QList<QAction*> found;
    for (QAction* action : window.findChildren<QAction*>()) {
      if (!action->text().isEmpty() && action->menu() == nullptr) found += action;
    }
    return found;
  };
  new FindAnything(window, {rows_, places_, commands, std::move(goToLine)});
}

void SearchDesk::carryOut(SearchCommand command, QWidget& window) {
  const auto* source = dynamic_cast<const NameSource*>(&window);
  const auto name = source == nullptr ? std::nullopt : source->nameHere();
  switch (command) {
    case SearchCommand::anything:
      if (auto* popup = window.findChild<FindAnything*>()) popup->open();
      break;
    case SearchCommand::definition:
      if (name) goToDefinition(*name);
      break;
    case SearchCommand::back:
      places_.goBack();
      break;
    case SearchCommand::forward:
      places_.goForward();
      break;
    default:
      break;
  }
}

void SearchDesk::goToDefinition(const NameHere& name) {
  const CataloguePtr& names = rows_.names().catalogue();
  rows_.names().ensure();
  if (names == nullptr) return;
  const auto found = names->definitions(name.space, ToBytes(name.name));
  if (!found.empty()) places_.showItem(ItemOf(found.front()));
}

}  // namespace korvane
