// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/TextFont.h"

#include <QFontDatabase>

#include "settings/SettingsStore.h"

namespace korvane {

namespace {

const QString kPrefix = QStringLiteral("ManEdit");
constexpr double kLeastSize = 1;
constexpr double kGreatestSize = 400;  // a larger one is a damaged entry

void SetFamily(QFont& font, const QString& name) {
  if (QFontDatabase::hasFamily(name)) font.setFamily(name);
}

void SetSize(QFont& font, const QString& text) {
  bool isNumber = false;
  const double points = text.toDouble(&isNumber);
  if (isNumber && points >= kLeastSize && points <= kGreatestSize) font.setPointSizeF(points);
}

}  // namespace

QFont StoredTextFont(const SettingsStore& settings, QFont font) {
  const auto stored = [&](const char* property) { return settings.GetSet(kPrefix + property, {}); };
  const auto flag = [&](const char* property, bool current) {
    return FlagOf(stored(property)).value_or(current);
  };
  SetFamily(font, stored("Name"));
  font.setBold(flag("Bold", font.bold()));
  font.setItalic(flag("Italic", font.italic()));
  SetSize(font, stored("Size"));
  font.setStrikeOut(flag("Strikethrough", font.strikeOut()));
  font.setUnderline(flag("Underline", font.underline()));
  return font;
}

void SaveTextFont(SettingsStore& settings, const QFont& font) {
  const auto save = [&](const char* property, const QString& value) {
    settings.SaveSet(kPrefix + property, value);
  };
  save("Name", font.family());
  save("Bold", TextOfFlag(font.bold()));
  save("Italic", TextOfFlag(font.italic()));
  save("Size", QString::number(font.pointSizeF()));
  save("Strikethrough", TextOfFlag(font.strikeOut()));
  save("Underline", TextOfFlag(font.underline()));
}

QFont ChosenFont(const FontRecord& record, QFont font) {
  SetFamily(font, record.faceName);
  font.setBold(IsBold(record.weight));
  font.setItalic(IsItalic(record.italic));
  font.setPointSizeF(record.points());
  font.setStrikeOut(record.strikeOut != 0);
  font.setUnderline(record.underline != 0);
  return font;
}

}  // namespace korvane
