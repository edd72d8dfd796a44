// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <memory>

#include "app/TextEdit.h"
#include "check/Checker.h"

namespace korvane {

// What is to be done about findings of one file.
enum class Mend {
  ignore,   // a comment that silences the finding
  suggest,  // the suggestion in the place of what is there
};

// How to do it in the file's text as it stands in the manual editor, where lines may have moved: the text is
// checked again, and what is not found any more is left alone. The findings keep the plan's own copy.
EditPlan PlanOf(Mend mend, Findings findings, std::shared_ptr<const Checker> checker);

// The finding with the same file, code and text that is nearest to its line; nullptr when there is none.
const Finding* NearestOf(const Findings& findings, const Finding& wanted);

}  // namespace korvane
