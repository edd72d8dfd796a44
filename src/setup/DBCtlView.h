// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include "stock/DBCtl.h"

namespace korvane {

class FileWriter;
class MessageBoxes;

// The database reader as a component of a window: of a fixed size, and a click on it tells the position of
// the current record.
class DBCtlView : public QWidget {
 public:
  DBCtlView(MessageBoxes& messages, const FileWriter& writer, QWidget* parent);

  DBCtl& database() { return database_; }

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  MessageBoxes& messages_;
  DBCtl database_;
};

}  // namespace korvane
