// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QString>

#include <functional>
#include <utility>

class QWidget;

namespace korvane {

inline constexpr int kRegularWeight = 400;
inline constexpr int kBoldWeight = 700;
inline constexpr int kItalicByte = 255;

// A font as the font dialog leaves it.
struct FontRecord {
  QString faceName;             // empty when the dialog was cancelled
  int weight = kRegularWeight;  // from 1 to 1000, as the font itself says
  int italic = 0;               // 0 or kItalicByte
  int underline = 0;            // 0 or not
  int strikeOut = 0;            // 0 or not
  int tenthsOfPoint = 100;

  bool cancelled() const { return faceName.isEmpty(); }
  double points() const { return tenthsOfPoint / 10.0; }
};

// Exactly a weight of kBoldWeight: one that is a little lighter or heavier counts as not bold.
bool IsBold(int weight);
// Exactly kItalicByte.
bool IsItalic(int value);

// The font of a record that was not cancelled, its other properties as in `current`.
QFont FontOf(const FontRecord& record, QFont current);

// Lets the user choose a font. An interface, so that tests choose in the user's place.
class FontChooser {
 public:
  virtual ~FontChooser() = default;

  // Waits for the choice. A cancelled dialog gives the preset record without a face name.
  virtual FontRecord ShowFontDialog() = 0;
};

// Qt's font dialog, preset to Times New Roman 10 pt; sizes from 10 to 72 points.
class FontDialog : public FontChooser {
 public:
  // `owner` gives the window that the dialog belongs to, at the time it is shown.
  explicit FontDialog(std::function<QWidget*()> owner) : owner_(std::move(owner)) {}

  FontRecord ShowFontDialog() override;

 private:
  std::function<QWidget*()> owner_;
};

}  // namespace korvane
