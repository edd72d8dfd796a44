// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QLineEdit>
#include <QSize>
#include <QString>

namespace korvane {

// A field for a number with its unit, under a mask such as "#### dist/sec": each "#" takes a typed digit and
// shows the prompt "_" while it is empty, the rest is literal text. A value that the mask cannot take in
// whole (22.5, -40, a word) is never shown as another number: it stands whole in place of the digits.
class MaskedField : public QLineEdit {
  Q_OBJECT

 public:
  explicit MaskedField(QWidget* parent = nullptr);

  // An empty mask makes a plain text field.
  void setMask(const QString& mask);

  // Shows the empty template (no text without a mask), with the cursor at its start.
  void showTemplate();

  // Puts a value in at the start of the empty template.
  void insertValue(const QString& value);

  // What the field shows, prompts and literal text included.
  QString fullText() const { return wholeValue_.isEmpty() ? displayText() : text(); }

  // Whether a text that the field showed is its mask, with nothing but digits in their places.
  bool isMasked(const QString& shown) const;

  // What was entered, without prompts and without the mask's literal text.
  QString clipText() const;

  // Wide enough for the template.
  QSize minimumSizeHint() const override;

 private:
  bool fits(const QString& value) const;
  // Puts the mask back when the user has replaced a value that did not fit by one that does.
  void takeTyped(const QString& text);

  QString mask_;
  int digits_ = 0;
  QString unit_;
  QString wholeValue_;  // a value that did not fit the mask
};

}  // namespace korvane
