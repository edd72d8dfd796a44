// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/SearchDesk.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QMainWindow>
#include <QMenuBar>
#include <QPointer>
#include <QToolTip>

#include "app/CatalogueService.h"
#include "catalogue/SourceFiles.h"
#include "controls/Present.h"
#include "controls/ShownText.h"
#include "platform/TextEncoding.h"
#include "search/FindAnything.h"
#include "search/SearchRows.h"
#include "search/UsesWindow.h"

namespace korvane {

namespace {

const QString kNoName = QStringLiteral("There is no name here.");
const QString kNoBlock = QStringLiteral("There is no block here.");

// In passing, beside what the keyboard is in.
void Tell(const QString& text) {
  QWidget* here = QApplication::focusWidget();
  if (here != nullptr) QToolTip::showText(here->mapToGlobal(QPoint(0, 0)), text, here);
}

}  // namespace

void SearchDesk::addField(QMainWindow& window, const Commands& commands) {
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
  new FindAnything(window, {rows_, places_, commands, {}}, field);
}

void SearchDesk::addPopup(QWidget& window, const Commands& commands, std::function<void(int)> goToLine) {
  new FindAnything(window, {rows_, places_, commands, std::move(goToLine)});
}

void SearchDesk::carryOut(SearchCommand command, QWidget& window) {
  const auto* source = dynamic_cast<const NameSource*>(&window);
  const auto name = source == nullptr ? std::nullopt : source->nameHere();
  const auto block = source == nullptr ? std::nullopt : source->blockHere();
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
    case SearchCommand::namesUsed:
      block ? listNamesUsed(*block) : Tell(kNoBlock);
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
    case SearchCommand::history:   // have windows of their own
    case SearchCommand::original:
      break;
  }
}

// Nothing when it is not known, or when the file has changed since. A text that is edited is known as it is.
std::optional<ItemPlace> SearchDesk::definitionOf(const NameHere& name) const {
  if (!rows_.names().isCurrent()) return std::nullopt;
  const CataloguePtr names = rows_.names().withUnsaved();
  const auto found = names->definitions(name.space, ToBytes(name.name));
  if (found.empty()) return std::nullopt;
  const CatalogueFile& file = *found.front().file;
  const SourceFile& source = file.source();
  const bool isEdited = rows_.names().catalogue()->file(source.path) != &file;
  const bool mayDiffer = !source.archived && !isEdited;
  if (mayDiffer && LooseSource(source.container, source.path) != source) return std::nullopt;
  return ItemOf(found.front());
}

void SearchDesk::goToDefinition(const NameHere& name) {
  QObject::disconnect(waiting_);
  if (const auto item = definitionOf(name)) return places_.showItem(*item);
  CatalogueService& names = rows_.names();
  const QPointer<QWidget> window = QApplication::activeWindow();
  waiting_ = QObject::connect(&names, &CatalogueService::changed, &names, [this, name, window] {
    if (rows_.names().isReading()) return;
    QObject::disconnect(waiting_);
    if (window != QApplication::activeWindow()) return;
    if (const auto item = definitionOf(name)) return places_.showItem(*item);
    Tell("No file defines '" + ShownText(name.name) + "'.");
  });
  names.refresh();
  if (names.catalogue() == nullptr) Tell("Reading the names...");
}

void SearchDesk::listNamesUsed(const ItemPlace& block) {
  usesWindow_().showNamesUsedBy(block);
  Present(usesWindow_());
}

QString SearchDesk::tellOfName(const NameHere& name) const {
  rows_.names().ensure();
  const CataloguePtr names = rows_.names().withUnsaved();
  const std::string bytes = ToBytes(name.name);
  if (names == nullptr || bytes.empty() || GameStructure::get().isSpecial(bytes, name.space)) return {};
  const auto found = names->definitions(name.space, bytes);
  const std::size_t uses = names->countUses(name.space, bytes);
  if (found.empty() && name.space == kNoSpace && uses == 0) return {};
  const QString used = uses == 1 ? QStringLiteral("1 use") : QStringLiteral("%1 uses").arg(uses);
  if (found.empty() && !rows_.names().isCurrent()) return {};  // further data may define it
  if (found.empty()) return ShownText(name.name) + "\nDefined nowhere\n" + used;
  const ItemPlace item = ItemOf(found.front());
  return QStringList{KindName(item.kind) + ' ' + ShownText(item.name), ShownPlace(item.place), used}.join(
      '\n');
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
