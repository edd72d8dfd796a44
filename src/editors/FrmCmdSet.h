// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "editors/TableEditor.h"

namespace korvane {

// The command set editor. Every slot offers all command buttons, read when the window loads.
class FrmCmdSet : public TableEditor {
  Q_OBJECT

 public:
  explicit FrmCmdSet(const TableEditorContext& context);

 Q_SIGNALS:
  // The picture of the slots is wanted.
  void formatAsked();

 protected:
  QStringList readNames() override;

 private:
  void showHelp();
  ChoiceList readButtonNames() const;
};

}  // namespace korvane
