// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <ostream>
#include <string>
#include <string_view>

#include "catalogue/Catalogue.h"
#include "catalogue/LineTexts.h"

namespace korvane {

enum class AnswerFormat { text, json };

// Writes what was found, a line for each: "file:line:column: Kind Name", and for a use the line that it
// stands in; or a JSON object. Files are named below the game folder with slashes, archived ones behind their
// archive.
class AnswerWriter {
 public:
  AnswerWriter(std::ostream& out, AnswerFormat format) : out_(out), format_(format) {}

  void write(const FoundDefinition& definition);
  // `kind`: of what is used.
  void write(const FoundUse& use, std::string_view kind);

  std::size_t written() const { return written_; }

 private:
  void writeText(const CatalogueFile& file, std::uint32_t line, std::uint32_t column, std::string_view kind,
                 std::string_view name, std::string_view text);

  std::ostream& out_;
  AnswerFormat format_;
  LineTexts lines_;
  std::size_t written_ = 0;
};

}  // namespace korvane
