// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/PlaceOpener.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "app/CatalogueService.h"
#include "app/EditorLauncher.h"
#include "app/ManualEditRequest.h"
#include "catalogue/SourceFiles.h"
#include "mainwindow/FrmEdit.h"
#include "platform/MessageBoxes.h"

namespace korvane {

namespace {

// Kinds that have a window of their own.
struct OwnWindow {
  std::string_view kind;
  TableEditorId editor;
};
constexpr std::array kOwnWindows = {
    OwnWindow{"Weapon", TableEditorId::weapons},
    OwnWindow{"Armor", TableEditorId::armours},
    OwnWindow{"CommandSet", TableEditorId::commandSets},
    OwnWindow{"CommandButton", TableEditorId::commandButtons},
};

bool IsObject(KindId kind) {
  const GameStructure& structure = GameStructure::get();
  return kind == structure.kind("Object") || kind == structure.kind("ObjectReskin");
}

}  // namespace

void PlaceOpener::showPlace(const FilePlace& place) {
  const ItemPlace item{kNoKind, {}, place};
  history_.visit(item);
  show(item);
}

void PlaceOpener::showItem(const ItemPlace& item) {
  history_.visit(item);
  show(item);
}

void PlaceOpener::goBack() {
  if (const auto item = history_.back()) show(*item);
}

void PlaceOpener::goForward() {
  if (const auto item = history_.forward()) show(*item);
}

void PlaceOpener::show(const ItemPlace& item) {
  if (item.kind == kNoKind || !showInOwnWindow(item)) edit(item.place);
}

bool PlaceOpener::showInOwnWindow(const ItemPlace& item) {
  const std::string_view kind = GameStructure::get().kinds()[item.kind].name;
  const auto* window = std::find_if(kOwnWindows.begin(), kOwnWindows.end(),
                                    [kind](const OwnWindow& own) { return own.kind == kind; });
  if (window != kOwnWindows.end()) return launcher_.showEntry(window->editor, item.name);
  return IsObject(item.kind) && item.place.archive.isEmpty() &&
         mainWindow_().showObject(item.place.path, item.name);
}

// Why the text cannot be read, as a clause; empty when it was.
std::string PlaceOpener::readArchived(const FilePlace& place, std::string& text) const {
  const CatalogueFile* file =
      names_.catalogue() == nullptr ? nullptr : names_.catalogue()->file(place.path.toStdString());
  if (file == nullptr || file->source().container != place.archive.toStdString()) {
    return "it is not there any more";
  }
  SourceReader reader;
  std::string fault = reader.read(file->source());
  text = reader.bytes();
  return fault;
}

void PlaceOpener::edit(const FilePlace& place) {
  ManualEditRequest request;
  request.place = {place.line, place.column, place.length};
  request.ManualEditFile = services_.folders.game + '\\' + place.path;
  if (!place.archive.isEmpty()) {
    request.ManualEditPartial = 1;
    const std::string fault = readArchived(place, request.text.emplace());
    if (!fault.empty()) {
      const QString text = ShownPlace(place) + ": " + QString::fromStdString(fault) + '.';
      services_.messages.show({.text = text}, &mainWindow_());
      return;
    }
  } else if (launcher_.goToInManualEditor(request.ManualEditFile, request.place)) {
    return;
  }
  launcher_.showManualEditor(request);
}

}  // namespace korvane
