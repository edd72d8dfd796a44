// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "edit/FieldEdits.h"

namespace korvane {

// The text with the edits made, found line by line without a thought for speed.
std::string WithLineEdits(const std::string& bytes, const std::vector<LineEdit>& edits);

// Plans the edits and holds the result against a slow reading of the same text: every field then shows what
// was typed, only words that were shown and whole new lines differ, and nothing changes when one is refused.
// What is wrong, or nothing.
std::string DifferenceFromSlowEdits(const std::string& bytes, const BlockName& block,
                                    const std::vector<FieldEdit>& edits);

}  // namespace korvane
