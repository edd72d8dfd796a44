// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "app/NameSource.h"

namespace korvane {

class BlockOutline;
class IniTextEdit;

// The name at the cursor and what it names by the place where it stands; else the word or the selected text,
// which may name anything.
std::optional<NameHere> NameAtCursor(const IniTextEdit& text, const BlockOutline& outline);

// The item that the outermost block at the cursor defines, without a place.
std::optional<ItemPlace> ItemAtCursor(const IniTextEdit& text, const BlockOutline& outline);

}  // namespace korvane
