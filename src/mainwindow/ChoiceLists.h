// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include <string_view>

#include "ini/TVItem.h"

namespace korvane {

class UnitFields;
struct Services;

// Fills the lists that offer every weapon, locomotor and armour type of the game's files. Reading weapons or
// locomotors empties the texts of their lists; the armour's text stays, since other windows follow it.
class ChoiceLists {
 public:
  // `yield` is called for every line that is read.
  ChoiceLists(UnitFields& fields, const Services& services, const Yield& yield);

  void readWeapons();
  void readLocomotors();
  void readArmours();

 private:
  // The names in the header lines that begin with the kind word.
  QStringList names(TVItem& reader, std::string_view file, std::string_view kind);

  UnitFields& fields_;
  const Services& services_;
  TVItem TVItem1_;  // weapons
  TVItem TVItem2_;  // locomotors
  TVItem TVItem3_;  // armours
};

}  // namespace korvane
