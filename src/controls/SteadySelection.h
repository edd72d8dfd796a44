// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QItemSelectionModel>

namespace korvane {

// The selection of a view in which an entry that is selected stays so until another one is: no click and no
// key takes a selection back. `command`: what Qt would do on reaching `index`. Without an event it
// is the program that selects.
inline QItemSelectionModel::SelectionFlags SteadySelection(QItemSelectionModel::SelectionFlags command,
                                                           const QModelIndex& index, const QEvent* event) {
  if (event == nullptr) return command;
  const bool takesBack = command.testFlag(QItemSelectionModel::Toggle) ||
                         command.testFlag(QItemSelectionModel::Deselect) || !index.isValid();
  if (!takesBack) return command;
  return index.isValid() ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                         : QItemSelectionModel::NoUpdate;
}

}  // namespace korvane
