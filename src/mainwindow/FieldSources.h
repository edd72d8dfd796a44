// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "app/ValueEdits.h"
#include "ini/SParse.h"
#include "mainwindow/TypedMarks.h"

class QWidget;

namespace korvane {

class UnitFields;
struct Folders;

// From which line of which file each field of the main window comes.
class FieldSources {
 public:
  FieldSources(UnitFields& fields, const SParse& parser, const TypedMarks& typed, const Folders& folders)
      : fields_(fields), parser_(parser), typed_(typed), folders_(folders) {}

  // The field of the object, or of its locomotor; nothing for all other widgets.
  std::optional<ShownField> of(const SelectedObject& object, const QWidget* field) const;
  // What was typed, in the order of the fields.
  std::vector<TypedValue> typedOf(const SelectedObject& object) const;

 private:
  std::optional<Field> fieldOfObject(const QWidget* field) const;
  std::optional<Field> weaponField(const QWidget* field) const;
  std::optional<std::size_t> handlingNumber(const QWidget* field) const;
  TypedValue typedValue(const SelectedObject& object, const TypedMarks::Typed& typed) const;
  ShownField inObject(const SelectedObject& object, std::optional<Field> field) const;

  UnitFields& fields_;
  const SParse& parser_;
  const TypedMarks& typed_;
  const Folders& folders_;
};

}  // namespace korvane
