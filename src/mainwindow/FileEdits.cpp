// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/FileEdits.h"

#include <QApplication>
#include <QComboBox>
#include <QLineEdit>

#include <algorithm>
#include <array>

#include "app/ManualEditRequest.h"
#include "app/Services.h"
#include "controls/InPlaceTable.h"
#include "controls/MaskedField.h"
#include "mainwindow/ObjectDisplay.h"
#include "mainwindow/ObjectNotices.h"
#include "mainwindow/ObjectTreeModel.h"
#include "mainwindow/UnitFields.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

// The fields behind the rows of the information list.
struct FieldOfRow {
  const char* caption;
  QWidget* (*field)(const UnitFields&);
};
constexpr std::array kRows = {
    FieldOfRow{"Initial Health", [](const UnitFields& f) -> QWidget* { return f.IHealth; }},
    FieldOfRow{"Max Health", [](const UnitFields& f) -> QWidget* { return f.MHealth; }},
    FieldOfRow{"Cost", [](const UnitFields& f) -> QWidget* { return f.TxtCost; }},
    FieldOfRow{"Build Speed", [](const UnitFields& f) -> QWidget* { return f.TxtBS; }},
    FieldOfRow{"Shroud Clearing Range", [](const UnitFields& f) -> QWidget* { return f.TxtSCR; }},
    FieldOfRow{"Vision Range", [](const UnitFields& f) -> QWidget* { return f.TxtVisRange; }},
    FieldOfRow{"Primary Weapon", [](const UnitFields& f) -> QWidget* { return f.PWeapon; }},
    FieldOfRow{"Secondary Weapon", [](const UnitFields& f) -> QWidget* { return f.SWeapon; }},
    FieldOfRow{"Tertiary Weapon", [](const UnitFields& f) -> QWidget* { return f.TWeapon; }},
    FieldOfRow{"Locomotor", [](const UnitFields& f) -> QWidget* { return f.CboLocomotor; }},
};

QString FileName(const QString& path) {
  return path.mid(path.lastIndexOf('\\') + 1);
}

}  // namespace

FileEdits::FileEdits(QWidget& window, UnitFields& fields, TypedMarks& typed, NoticeBar& notices,
                     const ObjectDisplay& display, const SParse& parser, const Services& services,
                     EditorLauncher& launcher)
    : window_(window),
      fields_(fields),
      typed_(typed),
      notices_(notices),
      display_(display),
      services_(services),
      launcher_(launcher),
      sources_(fields, parser, typed, services.folders) {
  typed.setEditInFile([this] { editInFile(); });
}

const QWidget* FileEdits::fieldOfRow() const {
  const auto* row = fields_.LstInfo->selectedRow();
  if (row == nullptr) return nullptr;
  for (const FieldOfRow& each : kRows) {
    if (row->caption == each.caption) return each.field(fields_);
  }
  for (std::size_t i = 0; i < kHandlingLabels.size(); ++i) {
    if (row->caption == kHandlingLabels[i]) return fields_.HS_TextBox[i];
  }
  return nullptr;
}

void FileEdits::showInFile() {
  const QWidget* focus = QApplication::focusWidget();
  const bool inFields = fields_.F_Tab->isEnabled() && focus != nullptr && fields_.F_Tab->isAncestorOf(focus);
  const SelectedObject object = inFields ? display_.shownObject() : display_.selectedObject();
  if (inFields && fields_.LstInfo->hasFocus()) focus = fieldOfRow();
  if (const auto shown = inFields ? sources_.of(object, focus) : std::nullopt)
    return ShowInFile(*shown, launcher_);
  const ObjectNode* node = display_.selectedNode();
  if (node == nullptr || node->tag.empty()) return;
  const QString file = DataFilePath(services_.folders, DataFolder::ini, QString::fromStdString(node->file));
  ShowInFile({file, {"Object", IsObjectNode(*node) ? node->text : std::string()}, {}}, launcher_);
}

void FileEdits::editInFile() {
  std::vector<std::vector<TypedValue>> files;
  for (TypedValue& value : sources_.typedOf(display_.shownObject())) {
    const auto file = std::ranges::find_if(
        files, [&](const auto& each) { return each.front().shown.file == value.shown.file; });
    if (file == files.end()) {
      files.push_back({std::move(value)});
    } else {
      file->push_back(std::move(value));
    }
  }
  if (files.empty()) showInFile();
  if (files.size() == 1) edit(files.front());
  if (files.size() > 1) offerEach(files);
}

bool FileEdits::takeSavedAsRead() {
  const std::vector<TypedMarks::Typed> typed = typed_.typed();
  const std::vector<bool> saved = ShownByFile(sources_.typedOf(display_.shownObject()));
  for (std::size_t i = 0; i < typed.size(); ++i) {
    if (saved[i]) typed_.takeAsRead(typed[i].field);
  }
  return typed_.typed().empty();
}

void FileEdits::offerEach(const std::vector<std::vector<TypedValue>>& files) {
  Notice notice("What is typed belongs to several files.");
  for (const std::vector<TypedValue>& values : files)
    notice.say(" ").link("Edit in " + FileName(values.front().shown.file), [this, values] { edit(values); });
  notices_.tell(editNotices, {notice});
}

void FileEdits::edit(const std::vector<TypedValue>& values) {
  notices_.tell(editNotices, EditInFile(values, launcher_, services_.messages, window_));
}

}  // namespace korvane
