// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/ChoiceLists.h"

#include <QComboBox>

#include "app/Services.h"
#include "controls/ShownText.h"
#include "ini/DataFiles.h"
#include "ini/IniText.h"
#include "mainwindow/UnitFields.h"

namespace korvane {

ChoiceLists::ChoiceLists(UnitFields& fields, const Services& services, const Yield& yield)
    : fields_(fields),
      services_(services),
      yield_(yield),
      TVItem1_(yield),
      TVItem2_(yield),
      TVItem3_(yield) {}

void ChoiceLists::readWeapons() {
  fields_.weapons->setStringList(names(TVItem1_, kWeaponFile, "Weapon "));
  for (QComboBox* list : {fields_.PWeapon, fields_.SWeapon, fields_.TWeapon}) EmptyText(*list);
}

void ChoiceLists::readLocomotors() {
  ReplaceEntries(*fields_.CboLocomotor, names(TVItem2_, kLocomotorFile, "Locomotor "));
  EmptyText(*fields_.CboLocomotor);
}

void ChoiceLists::readArmours() {
  ReplaceEntries(*fields_.CboArmour, names(TVItem3_, kArmorFile, "Armor"));
}

QStringList ChoiceLists::names(TVItem& reader, std::string_view file, std::string_view kind) {
  QStringList found;
  reader.NewLine = [&](std::string_view line) {
    yield_();
    if (!TVItem::CheckText(line, kind)) return;
    if (const auto name = HeaderName(line)) found += ShownName(*name);
  };
  reader.OpenFile(IniPath(services_.folders.game.toStdString(), file));
  reader.NewLine = nullptr;
  return found;
}

}  // namespace korvane
