// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

namespace korvane {

// What the table editors ask of the main window.
class UnitChoices {
 public:
  virtual ~UnitChoices() = default;

  // The entries of the primary weapon's list, in its order.
  virtual QStringList weaponNames() const = 0;
  // True when the armour list has an armour type chosen.
  virtual bool armourChosen() const = 0;
};

}  // namespace korvane
