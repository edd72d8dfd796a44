// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/FirstTreeFont.h"

#include <QFontDatabase>
#include <QFontInfo>

#include <algorithm>
#include <array>

#include "settings/SettingsStore.h"

namespace korvane {

namespace {

const QString kFamily = QStringLiteral("MenuiFont");
const QString kSize = QStringLiteral("MenuiFontSize");
const std::array<QString, 4> kStyles = {QStringLiteral("MenuiBold"), QStringLiteral("MenuiItalic"),
                                        QStringLiteral("MenuiUnderline"), QStringLiteral("MenuiStrikeout")};

}  // namespace

void StoreFirstTreeFont(SettingsStore& store) {
  const auto isStored = [&](const QString& name) { return store.find("Settings", name).has_value(); };
  if (isStored(kFamily) || isStored(kSize) || std::any_of(kStyles.begin(), kStyles.end(), isStored)) return;
  const QFontInfo font(QFontDatabase::systemFont(QFontDatabase::GeneralFont));
  store.SaveSet(kFamily, font.family());
  store.SaveSet(kSize, QString::number(font.pointSize()));
  for (const QString& style : kStyles) store.SaveSet(style, TextOfFlag(false));
}

}  // namespace korvane
