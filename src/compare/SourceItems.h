// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/GameStructure.h"
#include "compare/DataSource.h"

namespace korvane {

// A block that stands for itself, or a line outside of all blocks (its kind is kNoKind, its name the key).
struct SourceItem {
  KindId kind = kNoKind;
  std::string_view name;   // as it is spelt; empty for kinds without names
  std::string_view text;   // its lines, from the header's beginning
  std::string_view path;   // of its file
  std::uint32_t file = 0;  // in SourceItems::files
  std::uint32_t line = 0;  // of the header, from 1
  std::uint32_t lastLine = 0;
};

// All items of a source with the texts that they stand in.
struct SourceItems {
  std::vector<SourceText> files;
  std::vector<SourceItem> items;  // sorted by kind, name (letter case ignored) and place
  std::vector<SkippedFile> skipped;
};

// Only items of these kinds, unless there are none. Nothing when it was asked to stop.
std::optional<SourceItems> ReadItems(const DataSource& source, const std::vector<KindId>& kinds,
                                     const std::stop_token& stop = {}, const TellProgress& tell = {});

}  // namespace korvane
