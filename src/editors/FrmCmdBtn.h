// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editors/TableEditor.h"

namespace korvane {

// The command button editor.
class FrmCmdBtn : public TableEditor {
 public:
  explicit FrmCmdBtn(const TableEditorContext& context) : TableEditor(kCommandButtonEditor, context) {}
};

}  // namespace korvane
