// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FontDialog.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontDialog>
#include <QListView>
#include <QPointer>

#include <algorithm>
#include <cstdlib>

#ifdef Q_OS_WIN
#include <qpa/qplatformfontdatabase.h>
#endif

namespace korvane {

namespace {

const QString kPresetFace = QStringLiteral("Times New Roman");
constexpr double kPresetPoints = 10;
constexpr double kSmallestPoints = 10;
constexpr double kLargestPoints = 72;

double Limited(double points) {
  return std::clamp(points, kSmallestPoints, kLargestPoints);
}

int StretchOf(const QFont& font) {
  return font.stretch() == QFont::AnyStretch ? QFont::Unstretched : font.stretch();
}

// How far two fonts are apart; slanted instead of upright is the furthest.
int Distance(const QFont& a, const QFont& b) {
  return std::abs(a.weight() - b.weight()) + std::abs(StretchOf(a) - StretchOf(b)) +
         (a.italic() == b.italic() ? 0 : 1000);
}

// The font in another family, in the style there that is nearest to its own.
QFont InFamily(const QString& family, const QFont& font) {
  QList<QFont> fonts;
  for (const QString& style : QFontDatabase::styles(family)) fonts += QFontDatabase::font(family, style, 10);
  const auto nearest = std::min_element(fonts.begin(), fonts.end(), [&](const QFont& a, const QFont& b) {
    return Distance(a, font) < Distance(b, font);
  });
  if (nearest == fonts.end()) return font;
  nearest->setPointSizeF(font.pointSizeF());
  nearest->setUnderline(font.underline());
  nearest->setStrikeOut(font.strikeOut());
  return *nearest;
}

#ifdef Q_OS_WIN

// Windows lists families in which it finds nothing later, its own default among them where that is not
// installed. Qt's dialog ends the program at such a family: it gets a style, and is drawn as Windows sees
// fit.
void FillEmptyFamilies() {
  QSupportedWritingSystems latin;
  latin.setSupported(QFontDatabase::Latin);
  for (const QString& family : QFontDatabase::families()) {
    if (!QFontDatabase::styles(family).isEmpty()) continue;
    QPlatformFontDatabase::registerFont(family, {}, {}, QFont::Normal, QFont::StyleNormal, QFont::Unstretched,
                                        true, true, 0, false, latin, nullptr);
  }
}

#else

void FillEmptyFamilies() {}

#endif

// Qt's dialog has no limits of its own: a size beyond them is put right, and the dialog stays open to show
// what it has become. Nor does it keep upright letters upright: where the next family's styles have other
// names, it takes the first of them.
class LimitedFontDialog : public QFontDialog {
 public:
  explicit LimitedFontDialog(QWidget* owner) : QFontDialog(owner) {
    setOption(DontUseNativeDialog);
    QFont preset(kPresetFace);
    preset.setPointSizeF(kPresetPoints);
    setCurrentFont(preset);
    families_ = findChild<QListView*>();  // the first of the three lists
    families_->installEventFilter(this);
    families_->viewport()->installEventFilter(this);
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
  bool eventFilter(QObject* watched, QEvent* event) override {
    const bool ofFamilies = watched == families_ || watched == families_->viewport();
    const bool isInput = event->type() == QEvent::KeyPress || event->type() == QEvent::MouseButtonPress ||
                         event->type() == QEvent::MouseMove;
    if (ofFamilies && isInput) {
      QMetaObject::invokeMethod(
          this, [this, before = currentFont()] { keepStyle(before); }, Qt::QueuedConnection);
    }
    return QFontDialog::eventFilter(watched, event);
  }

  // The owner may be hidden: the place is before the window that the user has just used.
  void showEvent(QShowEvent* event) override {
    if (QWidget* used = QApplication::activeWindow()) adjustPosition(used);
    QFontDialog::showEvent(event);
  }

 private:
  void keepStyle(const QFont& before) {
    const QFont now = currentFont();
    if (now.family() == before.family()) return;
    if (now.italic() != before.italic() || now.weight() != before.weight())
      setCurrentFont(InFamily(now.family(), before));
  }

  QListView* families_ = nullptr;
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
  FillEmptyFamilies();
  // Its owner can go while it waits, and takes it along.
  const QPointer<LimitedFontDialog> dialog = new LimitedFontDialog(owner_());
  const bool chosen = dialog->exec() == QDialog::Accepted;
  const FontRecord record = dialog && chosen ? RecordOf(dialog->selectedFont()) : FontRecord{};
  delete dialog;
  return record;
}

}  // namespace korvane
