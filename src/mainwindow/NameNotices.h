// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "app/BlockNotices.h"
#include "catalogue/Catalogue.h"

namespace korvane {

// What the catalogue knows of an object that is shown: that other files define it too, and which weapons,
// armours and locomotors that it names are defined nowhere. Kinds of which the catalogue knows no item are
// passed over. `object`: of a file of the game folder itself; `block`: what is shown of it. Links open the
// manual editor at the line.
std::vector<Notice> NameNotices(const Catalogue& names, const LookedFor& object, const ShownBlock& block,
                                EditorLauncher& launcher);

}  // namespace korvane
