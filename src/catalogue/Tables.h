// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <span>
#include <string_view>

namespace korvane {

// What is known of the game's INI files, as it stands in tables/*.tsv: rows of texts, in the order of the
// file. GameStructure.h makes them usable.
//
// A path names the kinds of blocks from the outermost to the one meant: "FXList/Sound". "Behavior=X" is a
// Behavior whose module is X, "Behavior=*" one of any module. "#" at the end of a key or keyword stands for a
// number. "<header>" as a key means the words of the block's own header, "<module>" the first of them.

// A block that stands for itself.
struct KindRow {
  std::string_view kind;
  std::string_view names;   // how many names its header has: "0", "1", "2"
  std::string_view space;   // names of kinds that share a space are never given twice; empty: nameless
  std::string_view again;   // what a second definition of a name is: "error", "warning", or empty: nothing
  std::string_view like;    // the kind whose keys and blocks it has, if they are another kind's
  std::string_view editor;  // "yes": the program has a window of its own for such items
};

// A key that stands outside of all blocks.
struct LineRow {
  std::string_view key;
};

// A block inside another one.
struct BlockRow {
  std::string_view parent;   // path
  std::string_view keyword;  // "Behavior=*": the first word of its header names a module
  std::string_view sign;     // "none": no "=" behind the keyword; "either": with one or without
  std::string_view words;    // how many follow the keyword; "1+": one or more
  std::string_view like;     // path of the block whose keys and blocks it has
};

struct KeyRow {
  std::string_view path;
  std::string_view key;
  std::string_view type;     // "word", "name", "number", "labelled" (numbers behind labels, as in "X:1 Y:2")
  std::string_view numbers;  // how many numbers the value has
  std::string_view repeat;   // "once": hardly any block has it twice; "many": blocks do; empty: not known
  std::string_view common;   // "yes": met often enough here to take a similar key for a misspelling
  std::string_view form;     // "yes": its numbers are numbers so regularly that others are misshapen
};

// A value that names an item.
struct ReferenceRow {
  std::string_view path;
  std::string_view key;
  std::string_view modules;  // only in these, with commas between; empty: in any
  std::string_view
      position;            // "2": the second word; "2+": and all behind it; "fx:": the word behind the label
  std::string_view space;  // of the item's name
};

// A word that stands where a name is expected and is none.
struct SpecialRow {
  std::string_view word;
  std::string_view space;  // where it does; empty: anywhere
};

// The words that a value consists of.
struct WordsRow {
  std::string_view path;
  std::string_view key;
  std::string_view words;  // the frequent ones first, with spaces between
};

// The words of which one stands at a certain place of a value, before a name or other words.
struct LeadingRow {
  std::string_view path;
  std::string_view key;
  std::string_view modules;   // only in these, with commas between; empty: in any
  std::string_view position;  // "1": the first word
  std::string_view words;     // the frequent ones first, with spaces between
};

// A value that names something outside of the INI files.
struct OutsideRow {
  std::string_view path;
  std::string_view key;
  std::string_view what;
};

std::span<const KindRow> KindRows();
std::span<const LineRow> LineRows();
std::span<const BlockRow> BlockRows();
std::span<const KeyRow> KeyRows();
std::span<const ReferenceRow> ReferenceRows();
std::span<const SpecialRow> SpecialRows();
std::span<const WordsRow> WordsRows();
std::span<const LeadingRow> LeadingRows();
std::span<const OutsideRow> OutsideRows();

}  // namespace korvane
