// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPalette>

namespace korvane {

// The colour of links on the background: the palette's own where it can be read there, else a light or a dark
// blue.
QColor ReadableLink(const QPalette& palette, const QColor& background);

// A paler colour for what matters less: between the two, but one that can be read on the ground; at worst the
// ink.
QColor PaleText(const QColor& ink, const QColor& ground);

// Of what is drawn on a selected row of a list, tree or table.
QColor SelectedRowText();

// How far two colours are apart by the web's accessibility guidelines, from 1 to 21; text needs 4.5.
double ContrastOf(const QColor& a, const QColor& b);

// The palette with the hints of empty fields and the ground of selected text so that they can be read; its
// own colours stay where they can.
QPalette WithReadableText(QPalette palette);

// Gives the application's palette texts that can be read, whatever colours the desktop has.
class ReadablePalette : public QObject {
 public:
  // From now on, for as long as the application lives.
  static void install();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  using QObject::QObject;
};

}  // namespace korvane
