// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/StoredFont.h"

#include <QFontDatabase>

#include <algorithm>
#include <array>

#include "settings/SettingsStore.h"

namespace korvane {

namespace {

constexpr double kLeastSize = 4;       // points; smaller ones cannot be read
constexpr double kGreatestSize = 400;  // a larger one is a damaged entry

struct Style {
  const char* FontSettings::*setting;
  bool (QFont::*get)() const;
  void (QFont::*set)(bool);
};
constexpr std::array kStyles = {
    Style{&FontSettings::bold, &QFont::bold, &QFont::setBold},
    Style{&FontSettings::italic, &QFont::italic, &QFont::setItalic},
    Style{&FontSettings::underline, &QFont::underline, &QFont::setUnderline},
    Style{&FontSettings::strikeOut, &QFont::strikeOut, &QFont::setStrikeOut},
};

}  // namespace

QFont StoredFont(const SettingsStore& store, const FontSettings& settings, QFont font) {
  const auto stored = [&](const char* name) { return store.GetSet(name, settings.absent); };
  if (const QString family = stored(settings.family); QFontDatabase::hasFamily(family))
    font.setFamily(family);
  bool isNumber = false;
  const double size = stored(settings.size).toDouble(&isNumber);
  if (isNumber && size >= kLeastSize && size <= kGreatestSize) font.setPointSizeF(size);
  for (const Style& style : kStyles) {
    if (const auto flag = FlagOf(stored(settings.*style.setting))) (font.*style.set)(*flag);
  }
  return font;
}

void SaveFont(SettingsStore& store, const FontSettings& settings, const QFont& font) {
  const SettingsStore::Batch batch(store);
  store.SaveSet(settings.family, font.family());
  store.SaveSet(settings.size, QString::number(font.pointSizeF()));
  for (const Style& style : kStyles) {
    store.SaveSet(settings.*style.setting, TextOfFlag((font.*style.get)()));
  }
}

bool AnyStored(const SettingsStore& store, const FontSettings& settings) {
  const auto isStored = [&](const char* name) { return store.find("Settings", name).has_value(); };
  return isStored(settings.family) || isStored(settings.size) ||
         std::any_of(kStyles.begin(), kStyles.end(),
                     [&](const Style& style) { return isStored(settings.*style.setting); });
}

}  // namespace korvane
