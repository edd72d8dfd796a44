// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/MaskedField.h"

#include <algorithm>

namespace korvane {

namespace {

constexpr QChar kDigitPlace = u'#';
constexpr QChar kPrompt = u'_';

constexpr int kTextMargin = 2;  // pixels that a field keeps free on either side of its text
constexpr int kCursor = 1;

bool IsDigit(QChar c) {
  return c >= u'0' && c <= u'9';
}

// Qt's own mask language: "0" is a digit that may be left out, and every literal is escaped.
QString QtMask(const QString& mask) {
  QString text;
  for (const QChar c : mask) {
    if (c == kDigitPlace) {
      text += u'0';
    } else {
      text += u'\\';
      text += c;
    }
  }
  return text + u';' + kPrompt;
}

}  // namespace

MaskedField::MaskedField(QWidget* parent) : QLineEdit(parent) {
  connect(this, &QLineEdit::textEdited, this, &MaskedField::takeTyped);
}

void MaskedField::setMask(const QString& mask) {
  mask_ = mask;
  digits_ = static_cast<int>(mask.count(kDigitPlace));
  unit_ = mask.mid(digits_).trimmed();
  showTemplate();
}

void MaskedField::showTemplate() {
  wholeValue_.clear();
  if (mask_.isEmpty()) {
    clear();
  } else {
    const QString mask = QtMask(mask_);
    if (inputMask() != mask) setInputMask(mask);
    setText({});
  }
  setCursorPosition(0);
}

bool MaskedField::fits(const QString& value) const {
  return value.size() <= digits_ && std::all_of(value.begin(), value.end(), IsDigit);
}

void MaskedField::takeTyped(const QString& text) {
  if (wholeValue_.isEmpty() || !fits(text)) return;
  const QString typed = text;  // the template would empty it
  showTemplate();
  insert(typed);
}

void MaskedField::insertValue(const QString& value) {
  if (mask_.isEmpty() || fits(value)) {
    insert(value);
    return;
  }
  setInputMask({});
  wholeValue_ = value;
  setText(value + u' ' + unit_);
  setCursorPosition(0);
}

bool MaskedField::isMasked(const QString& shown) const {
  const QString digits = shown.left(digits_).remove(kPrompt);
  return mask_.isEmpty() || (shown.mid(digits_).trimmed() == unit_ && fits(digits));
}

QString MaskedField::clipText() const {
  const QString shown = displayText();
  if (mask_.isEmpty()) return shown;
  if (!wholeValue_.isEmpty()) {
    const QString tail = u' ' + unit_;
    return text().endsWith(tail) ? text().chopped(tail.size()) : text();
  }
  return shown.left(digits_).remove(kPrompt);
}

QSize MaskedField::minimumSizeHint() const {
  const QSize least = QLineEdit::minimumSizeHint();  // which is as wide as the font's widest letter
  const int frame = least.width() - fontMetrics().maxWidth();
  const QString shown = QString(mask_).replace(kDigitPlace, kPrompt);
  return least.expandedTo({fontMetrics().horizontalAdvance(shown) + frame + 2 * kTextMargin + kCursor, 0});
}

}  // namespace korvane
