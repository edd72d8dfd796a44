// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>

#include "catalogue/GameStructure.h"

namespace korvane {

// A name that the user points at.
struct NameHere {
  QString name;
  SpaceId space = kNoSpace;  // kNoSpace: what it names is not known
};

// A window that shows names.
class NameSource {
 public:
  virtual ~NameSource() = default;

  // The name at the cursor, in the selected row or in the field that has the keyboard; nothing when there is
  // none.
  virtual std::optional<NameHere> nameHere() const = 0;
};

}  // namespace korvane
