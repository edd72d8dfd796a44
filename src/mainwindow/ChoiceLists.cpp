// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/ChoiceLists.h"

#include <QComboBox>

#include "app/Services.h"
#include "controls/ShownText.h"
#include "ini/Blocks.h"
#include "ini/DataFiles.h"
#include "mainwindow/UnitFields.h"

namespace korvane {

ChoiceLists::ChoiceLists(UnitFields& fields, const Services& services, const Yield& yield)
    : fields_(fields), services_(services), TVItem1_(yield), TVItem2_(yield), TVItem3_(yield) {}

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
  ReadHeaders(reader, IniPath(services_.folders.game.toStdString(), file), kind,
              [&](const HeaderLine& header) {
                if (header.name) found += ShownName(*header.name);
              });
  return found;
}

}  // namespace korvane
