// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/Tables.h"

namespace korvane {

namespace {

constexpr KindRow kKinds[] = {
#include "catalogue/tables/kinds.inc"
};
constexpr LineRow kLines[] = {
#include "catalogue/tables/lines.inc"
};
constexpr BlockRow kBlocks[] = {
#include "catalogue/tables/blocks.inc"
};
constexpr KeyRow kKeys[] = {
#include "catalogue/tables/keys.inc"
};
constexpr ReferenceRow kReferences[] = {
#include "catalogue/tables/references.inc"
};
constexpr SpecialRow kSpecial[] = {
#include "catalogue/tables/special.inc"
};
constexpr WordsRow kWords[] = {
#include "catalogue/tables/words.inc"
};
constexpr LeadingRow kLeading[] = {
#include "catalogue/tables/leading.inc"
};
constexpr OutsideRow kOutside[] = {
#include "catalogue/tables/outside.inc"
};

}  // namespace

std::span<const KindRow> KindRows() {
  return kKinds;
}
std::span<const LineRow> LineRows() {
  return kLines;
}
std::span<const BlockRow> BlockRows() {
  return kBlocks;
}
std::span<const KeyRow> KeyRows() {
  return kKeys;
}
std::span<const ReferenceRow> ReferenceRows() {
  return kReferences;
}
std::span<const SpecialRow> SpecialRows() {
  return kSpecial;
}
std::span<const WordsRow> WordsRows() {
  return kWords;
}
std::span<const LeadingRow> LeadingRows() {
  return kLeading;
}
std::span<const OutsideRow> OutsideRows() {
  return kOutside;
}

}  // namespace korvane
