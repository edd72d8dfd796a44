// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/SearchDesk.h"

#include <QAction>
#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QToolTip>

#include "app/CatalogueService.h"
#include "controls/Present.h"
#include "controls/ShownText.h"
#include "platform/TextEncoding.h"
#include "search/FindAnything.h"
#include "search/SearchRows.h"
#include "search/UsesWindow.h"

namespace korvane {

namespace {

const QString kNoName = QStringLiteral("There is no name here.");

// In passing, beside what the keyboard is in.
void Tell(const QString& text) {
  QWidget* here = QApplication::focusWidget();
  if (here != nullptr) QToolTip::showText(here->mapToGlobal(QPoint(0, 0)), text, here);
}

}  // namespace

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

void SearchDesk::addPopup(QWidget& window, std::function<void(int)> goToLine) {
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
      name ? goToDefinition(*name) : Tell(kNoName);
      break;
    case SearchCommand::uses:
      name ? findUses(*name) : Tell(kNoName);
      break;
    case SearchCommand::files:
      findInFiles(name ? name->name : QString());
      break;
    case SearchCommand::back:
      places_.goBack();
      break;
    case SearchCommand::forward:
      places_.goForward();
      break;
    case SearchCommand::problems:  // asks for no place
      break;
  }
}

void SearchDesk::goToDefinition(const NameHere& name) {
  const CataloguePtr& names = rows_.names().catalogue();
  rows_.names().ensure();
  if (names == nullptr) return Tell("The names are being read. Try again in a moment.");
  const auto found = names->definitions(name.space, ToBytes(name.name));
  if (found.empty()) return Tell("No file defines '" + ShownText(name.name) + "'.");
  places_.showItem(ItemOf(found.front()));
}

void SearchDesk::findUses(const NameHere& name) {
  usesWindow_().showUses(name);
  Present(usesWindow_());
}

void SearchDesk::findInFiles(const QString& text) {
  usesWindow_().askForText(text);
  Present(usesWindow_());
}

}  // namespace korvane
