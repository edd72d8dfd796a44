// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/PlaceOpener.h"

#include <QApplication>

#include <algorithm>
#include <array>
#include <string_view>

#include "app/EditorLauncher.h"
#include "app/ManualEditRequest.h"
#include "app/NameSource.h"
#include "catalogue/Extraction.h"
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

// The file as its archive or further folder has it now.
std::optional<SourceFile> ArchivedSource(const FilePlace& place) {
  const std::string container = place.archive.toStdString();
  const std::string path = place.path.toStdString();
  if (auto loose = LooseSource(container, path)) return loose;
  const auto list = ListSourceFiles({container}, {});
  for (const SourceFile& file : list->files) {
    if (file.container == container && ComparedPath(file.path) == ComparedPath(path)) return file;
  }
  return std::nullopt;
}

// Why the text cannot be read, as a clause; empty when it was.
std::string ReadArchived(const FilePlace& place, std::string& text) {
  const auto source = ArchivedSource(place);
  if (!source) return "it is not there any more";
  SourceReader reader;
  std::string fault = reader.read(*source);
  text = reader.bytes();
  return fault;
}

std::optional<ItemPlace> PlaceOfUser() {
  const auto* source = dynamic_cast<const NameSource*>(QApplication::activeWindow());
  return source == nullptr ? std::nullopt : source->placeHere();
}

}  // namespace

void PlaceOpener::showPlace(const FilePlace& place) {
  showItem({kNoKind, {}, place});
}

// To the manual editor an item is a place like all others.
void PlaceOpener::showItem(const ItemPlace& item) {
  const auto here = PlaceOfUser();
  const bool ownWindow = show(item);
  history_.visit(ownWindow ? item : ItemPlace{kNoKind, {}, item.place}, here);
}

void PlaceOpener::goBack() {
  if (const auto item = history_.back(PlaceOfUser())) show(*item);
}

void PlaceOpener::goForward() {
  if (const auto item = history_.forward()) show(*item);
}

// False when it is the manual editor that shows it.
bool PlaceOpener::show(const ItemPlace& item) {
  if (item.kind != kNoKind && showInOwnWindow(item)) return true;
  edit(item.place);
  return false;
}

bool PlaceOpener::showInOwnWindow(const ItemPlace& item) {
  const std::string_view kind = GameStructure::get().kinds()[item.kind].name;
  const auto* window = std::find_if(kOwnWindows.begin(), kOwnWindows.end(),
                                    [kind](const OwnWindow& own) { return own.kind == kind; });
  if (window != kOwnWindows.end()) return launcher_.showEntry(window->editor, item.name);
  return IsObject(item.kind) && item.place.archive.isEmpty() &&
         mainWindow_().showObject(item.place.path, item.name);
}

void PlaceOpener::edit(const FilePlace& place) {
  ManualEditRequest request;
  request.place = {place.line, place.column, place.length};
  request.ManualEditFile = services_.folders.game + '\\' + place.path;
  if (!place.archive.isEmpty()) {
    request.archive = place.archive;
    const std::string fault = ReadArchived(place, request.text.emplace());
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

bool PlaceOpener::extract(const FilePlace& place, QWidget& window) {
  const QString path = '\\' + place.path;
  const QString question =
      "Extract this file from " + ArchiveName(place.archive) + "?\r\n" + path +
      "\r\nThe loose file will overrule the archive: the game reads it in place of the text there.";
  if (services_.messages.ask({question, {"Extract", "Cancel"}}, &window) != 0) return false;
  std::string bytes;
  std::string fault = ReadArchived(place, bytes);
  if (fault.empty())
    fault = ExtractText(services_.folders.game.toStdString(), place.path.toStdString(), bytes);
  if (!fault.empty()) {
    const QString text = "The file was not extracted: \r\n" + path + "\r\n" + QString::fromStdString(fault);
    services_.messages.show({.text = text}, &window);
    return false;
  }
  FilePlace extracted = place;
  extracted.archive.clear();
  edit(extracted);
  return true;
}

}  // namespace korvane
