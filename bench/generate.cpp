// SPDX-License-Identifier: GPL-3.0-or-later
// korvane-generate game|modification FOLDER [FACTOR]: writes a large made-up game folder, to try the program
// on.
#include <charconv>
#include <exception>
#include <iostream>
#include <optional>
#include <span>
#include <string_view>

#include "GameGenerator.h"
#include "ModificationGenerator.h"

namespace {

constexpr int kLargestFactor = 100;  // 800 MB of a game, 2.2 GB of a modification

std::optional<int> FactorOf(std::string_view text) {
  int factor = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), factor);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  if (!whole || factor < 1 || factor > kLargestFactor) return std::nullopt;
  return factor;
}

}  // namespace

int main(int count, char** values) {
  const std::span arguments(values, static_cast<std::size_t>(count));
  const std::string_view what = count > 1 ? arguments[1] : "";
  const std::optional<int> factor = count > 3 ? FactorOf(arguments[3]) : 1;
  const bool known = what == "game" || what == "modification";
  if (!known || count < 3 || count > 4 || !factor) {
    std::cerr << "usage: korvane-generate game|modification FOLDER [FACTOR, 1 to " << kLargestFactor << "]\n";
    return 2;
  }
  try {
    const auto generate = what == "game" ? korvane::GenerateGame : korvane::GenerateModification;
    generate(arguments[2], *factor);
  } catch (const std::exception& error) {
    std::cerr << "korvane-generate: " << error.what() << '\n';
    return 1;
  }
}
