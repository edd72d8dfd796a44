// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "edit/BlockText.h"
#include "edit/Fields.h"

namespace korvane {

// Why something cannot be edited, as a clause for the user: "it shows 2 lines run together".
struct Refusal {
  std::string reason{};  // empty: there is none
  int line = 0;          // from 1, where that is seen; 0: nowhere

  explicit operator bool() const { return !reason.empty(); }
};

// Where the value that a field shows stands in its block.
struct FieldLine {
  std::size_t line = kNowhere;  // index; kNowhere: the block has no such line
  std::size_t at = 0;           // of the shown word: bytes before it in the line
  std::size_t length = 0;
  Refusal refusal{};  // it cannot be replaced there
};
FieldLine FindField(const BlockText& block, const Field& field);

// What the display grammar shows for the field, as the windows put it together. `text`: the block, every line
// with CR LF.
std::string ShownValue(std::string_view text, const Field& field);

// The lines (indexes) of a weapon set that begin with "Weapon", its header first; why it cannot be edited.
struct WeaponLines {
  std::vector<std::size_t> lines{};
  Refusal refusal{};
};
WeaponLines FindWeaponLines(const BlockText& block, const WeaponField& field);

// The block's lines, each with CR LF.
std::string TextOf(const BlockText& block);

}  // namespace korvane
