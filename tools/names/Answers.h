// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>

#include "AnswerWriter.h"

namespace korvane {

// What is asked for; `kind` kNoKind: of any kind.

void WriteDefinitions(const Catalogue& catalogue, KindId kind, const std::string& name, AnswerWriter& writer);
void WriteUses(const Catalogue& catalogue, KindId kind, const std::string& name, AnswerWriter& writer);
// The best first.
void WriteMatches(const Catalogue& catalogue, KindId kind, const std::string& text, AnswerWriter& writer);
// Every definition, in the order of the files.
void WriteAll(const Catalogue& catalogue, KindId kind, AnswerWriter& writer);

}  // namespace korvane
