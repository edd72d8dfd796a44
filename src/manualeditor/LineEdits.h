// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace korvane {

// Each takes whole lines in UTF-8, the last one without its line end, and gives them changed. Line ends stay.

// Every line that holds something becomes a comment, or, when all of them are comments, none is one any more.
std::string CommentToggled(std::string_view lines);
// What the lines of a text are indented by: a tab where most of them begin with one, else two blanks.
std::string_view IndentOf(std::string_view text);
// Every line that holds something begins with `indent` more, or, as far as it does, with that much less.
std::string Indented(std::string_view lines, std::string_view indent);
std::string Outdented(std::string_view lines, std::string_view indent, std::size_t tabWidth);
// Blanks and tabs at the ends of lines go.
std::string Trimmed(std::string_view lines);
// The "=" of the lines that have one stand below each other, one blank behind the longest key. What stands in
// a comment is left alone. `tabWidth` is in columns.
std::string Aligned(std::string_view lines, std::size_t tabWidth);

}  // namespace korvane
