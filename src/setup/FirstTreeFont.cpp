// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/FirstTreeFont.h"

#include <QFontDatabase>
#include <QFontInfo>

#include "controls/StoredFont.h"

namespace korvane {

void StoreFirstTreeFont(SettingsStore& store) {
  if (AnyStored(store, kTreeFont)) return;
  const QFontInfo desktop(QFontDatabase::systemFont(QFontDatabase::GeneralFont));
  SaveFont(store, kTreeFont, QFont(desktop.family(), desktop.pointSize()));
}

}  // namespace korvane
