// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPalette>

namespace korvane {

// The colour of links on the background: the palette's own where it can be read there, else a light or a dark
// blue.
QColor ReadableLink(const QPalette& palette, const QColor& background);

// The colour of the hints in empty fields: the palette's own where it can be read, else the text's, paler.
QColor ReadableHint(const QPalette& palette);

// Of what is drawn on a selected row of a list, tree or table.
QColor SelectedRowText();

// Gives the application's palette hints and selected rows that can be read, whatever colours the desktop has.
class ReadableHints : public QObject {
 public:
  // From now on, for as long as the application lives.
  static void install();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using QObject::QObject;
};

}  // namespace korvane
