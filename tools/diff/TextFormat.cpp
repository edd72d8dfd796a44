// SPDX-License-Identifier: GPL-3.0-or-later
#include "diff/TextFormat.h"

#include <ostream>

#include "Printable.h"
#include "compare/ExportFormats.h"
#include "files/Windows1252.h"

namespace korvane {

void WriteText(std::ostream& out, const Comparison& comparison) {
  for (const ItemChange& item : comparison.items) {
    out << kItemStates[static_cast<std::size_t>(item.state)] << ' ' << KindText(item.kind);
    if (item.kind != kNoKind && !item.name.empty()) out << ' ';
    out << Printable(Utf8FromBytes(item.name)) << " (" << Printable(ExportedPath(comparison.fileOf(item)))
        << ':' << comparison.lineOf(item) << ")\n";
    for (const KeyChange& key : item.keys) out << "    " << Printable(KeyChangeText(key)) << '\n';
    if (item.state == ItemState::changed && item.keys.empty()) out << "    order, spacing or comments\n";
  }
}

}  // namespace korvane
