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
  // The slots for which the table has no row.
  std::vector<Notice> noticesOf(const std::string& text, const ShownBlock& block,
                                const QString& file) const override;

 private:
  void showHelp();
  ChoiceList readButtonNames() const;
};

}  // namespace korvane
