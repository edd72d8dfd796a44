// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>
#include <string_view>

#include "app/Places.h"
#include "catalogue/GameStructure.h"

namespace korvane {

// A name that the user points at.
struct NameHere {
  QString name;
  SpaceId space = kNoSpace;  // kNoSpace: what it names is not known
};

// The first name in the value of a key of such a block; where none is expected the value itself.
NameHere NameInValue(std::string_view kind, const QString& key, const QString& value);

// A window that shows names.
class NameSource {
 public:
  virtual ~NameSource() = default;

  // The name at the cursor, in the selected row or in the field that has the keyboard; nothing when there is
  // none.
  virtual std::optional<NameHere> nameHere() const = 0;

  // Where the user is, as a place to come back to; nothing when there is no such place.
  virtual std::optional<ItemPlace> placeHere() const { return std::nullopt; }

  // The block that is shown or has the cursor: an item by its kind and name, else the outermost block at the
  // place.
  virtual std::optional<ItemPlace> blockHere() const { return placeHere(); }
};

}  // namespace korvane
