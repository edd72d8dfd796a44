// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FontDialog.h"

#include <QApplication>
#include <QFontDialog>
#include <QPointer>

#include <algorithm>

namespace korvane {

namespace {

const QString kPresetFace = QStringLiteral("Times New Roman");
constexpr double kPresetPoints = 10;
constexpr double kSmallestPoints = 10;
constexpr double kLargestPoints = 72;

double Limited(double points) {
  return std::clamp(points, kSmallestPoints, kLargestPoints);
}

// Qt's dialog has no limits of its own: a size beyond them is put right, and the dialog stays open
// to show what it has become.
class LimitedFontDialog : public QFontDialog {
 public:
  explicit LimitedFontDialog(QWidget* owner) : QFontDialog(owner) {
    setOption(DontUseNativeDialog);
    QFont preset(kPresetFace);
    preset.setPointSizeF(kPresetPoints);
    setCurrentFont(preset);
  }

  void done(int result) override {
    QFont chosen = currentFont();
    const double points = chosen.pointSizeF();
    if (result == Accepted && points != Limited(points)) {
      chosen.setPointSizeF(Limited(points));
      setCurrentFont(chosen);
      return;
    }
    QFontDialog::done(result);
  }

 protected:
  // The owner may be hidden: the place is before the window that the user has just used.
  void showEvent(QShowEvent* event) override {
    if (QWidget* used = QApplication::activeWindow()) adjustPosition(used);
    QFontDialog::showEvent(event);
  }
};

FontRecord RecordOf(const QFont& font) {
  FontRecord record;
  record.faceName = font.family();
  record.weight = font.weight();
  record.italic = font.italic() ? kItalicByte : 0;
  record.underline = font.underline() ? 1 : 0;
  record.strikeOut = font.strikeOut() ? 1 : 0;
  record.tenthsOfPoint = qRound(font.pointSizeF() * 10);
  return record;
}

}  // namespace

bool IsBold(int weight) {
  return weight == kBoldWeight;
}

bool IsItalic(int value) {
  return value == kItalicByte;
}

QFont FontOf(const FontRecord& record, QFont font) {
  font.setFamily(record.faceName);
  font.setBold(IsBold(record.weight));
  font.setItalic(IsItalic(record.italic));
  font.setPointSizeF(record.points());
  font.setStrikeOut(record.strikeOut != 0);
  font.setUnderline(record.underline != 0);
  return font;
}

FontRecord FontDialog::ShowFontDialog() {
  // Its owner can go while it waits, and takes it along.
  const QPointer<LimitedFontDialog> dialog = new LimitedFontDialog(owner_());
  const bool chosen = dialog->exec() == QDialog::Accepted;
  const FontRecord record = dialog && chosen ? RecordOf(dialog->selectedFont()) : FontRecord{};
  delete dialog;
  return record;
}

}  // namespace korvane
