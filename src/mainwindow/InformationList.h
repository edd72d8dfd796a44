// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <functional>

namespace korvane {

class UnitFields;

// The two-column summary of what the fields show, rebuilt from scratch from the fields, never from the files.
class InformationList {
 public:
  // `objectName` gives the text of the tree's selected node.
  InformationList(UnitFields& fields, std::function<QString()> objectName)
      : fields_(fields), objectName_(std::move(objectName)) {}

  // Adds the list's columns; once, at the end of start-up.
  void prepare();

  void UpdateLV();

 private:
  // Stops after the "Cost" caption when the cost is too short to drop its cents.
  void Stage1Update();
  // Adds nothing when there is no locomotor.
  void Stage2LocomotorUpdate();
  void Stage3Update();

  void addRow(const QString& caption, const QString& value);
  void addSeparator();
  void addBlank();

  UnitFields& fields_;
  std::function<QString()> objectName_;
};

}  // namespace korvane
