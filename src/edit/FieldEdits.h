// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "edit/FieldLines.h"
#include "edit/Fields.h"

namespace korvane {

// Turns what was typed into fields into changes of a file's text. Texts are the file's bytes; lines and
// columns are counted from 1, columns in bytes.

struct FieldEdit {
  Field field;
  std::string value;  // that was typed
};

// Bytes of one line that become others; what begins with a line end is a new line behind it.
struct LineEdit {
  int line = 1;
  int column = 1;
  int length = 0;
  std::string text{};
};

// A value in a text, with the header of its block.
struct ValuePlace {
  int line = 0;  // 0: nowhere
  int column = 1;
  int length = 0;
  int header = 0;
};

struct FieldPlan {
  std::vector<LineEdit> edits{};    // in the order of the text; none for values that stand there already
  ValuePlace place{};               // of the first value in the text, after the edits
  std::vector<Refusal> refusals{};  // one for each edit, empty where there is none; all empty: it can be done
  bool refused() const;
};

// Only the shown word of each field's line is replaced, or a line is inserted where the block has its like.
// Nothing is planned when one of them is refused.
FieldPlan PlanFieldEdits(std::string_view bytes, const BlockName& block, std::span<const FieldEdit> edits);

// Where the field's value stands; its block's header, when it stands nowhere or `field` is null.
ValuePlace FindValue(std::string_view bytes, const BlockName& block, const Field* field);

// What the field shows when the bytes are read; see ShownValue.
std::string ReadValue(std::string_view bytes, const BlockName& block, const Field& field);

}  // namespace korvane
