// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

// The grammar of the game's INI text a second time, step by step, without a thought for speed. Tests and the
// fuzz programs hold the parser against it.
namespace korvane::slow {

using Texts = std::vector<std::string>;

Texts Lines(const std::string& file);
std::string ObjectText(const std::string& file, const std::string& kind, const std::string& name);
std::string ParameterValue(const std::string& text, const std::string& key);
std::optional<std::string> SingleValue(const std::string& text, const std::string& key);
std::string WithoutBlankLines(const std::string& text);
Texts WeaponSets(const std::string& text);

}  // namespace korvane::slow
