// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QString>

#include "controls/InPlaceTable.h"

class QLineEdit;

namespace korvane {

class UnitFields;

// While one lives, values come into the fields unseen: where the user is in them stays as it is.
class KeptFields {
 public:
  explicit KeptFields(UnitFields& fields);
  ~KeptFields();
  KeptFields(const KeptFields&) = delete;
  KeptFields& operator=(const KeptFields&) = delete;

 private:
  UnitFields& fields_;
  InPlaceTable::KeptPlace list_;
  QPointer<QLineEdit> field_;  // with the keyboard
  QString text_;
  int cursor_ = 0;
  int selected_ = -1;  // where the selection starts; -1: nothing is selected
  int length_ = 0;
};

}  // namespace korvane
