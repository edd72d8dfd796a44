// SPDX-License-Identifier: GPL-3.0-or-later
#include "compare/SlowComparison.h"

#include <algorithm>
#include <sstream>

namespace korvane {

namespace {

using Words = std::vector<std::string>;

const std::set<std::string> kModules = {"Behavior", "Draw", "Body"};
const std::set<std::string> kBlocks = {"WeaponSet", "ConditionState", "Prerequisites"};

std::string Joined(const Words& words, std::size_t from) {
  std::string joined;
  for (std::size_t i = from; i < words.size(); ++i) joined += (i == from ? "" : " ") + words[i];
  return joined;
}

Words WordsOf(std::string line) {
  line = line.substr(0, std::min(line.find(';'), line.find("//")));
  std::ranges::replace(line, '=', ' ');
  std::istringstream in(line);
  Words words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

}  // namespace

void SlowRead(std::string_view text, SlowItems& items) {
  std::istringstream lines{std::string(text)};
  std::vector<std::string> open;
  for (std::string line; std::getline(lines, line);) {
    const Words words = WordsOf(line);
    if (words.empty()) continue;
    const std::string path = [&] {
      std::string joined;
      for (std::size_t i = 1; i < open.size(); ++i) joined += open[i] + " / ";
      return joined;
    }();
    if (words[0] == "End") {
      open.pop_back();
    } else if (open.empty()) {
      open.push_back(words[0] + ' ' + words[1]);
      items[open[0]];
    } else if (kModules.contains(words[0])) {
      open.push_back(words[0] + ' ' + words[2]);
      items[open[0]].insert(path + open.back() + '=' + words[1]);
    } else if (kBlocks.contains(words[0])) {
      open.push_back(Joined(words, 0));
      items[open[0]].insert(path + open.back() + '=');
    } else {
      items[open[0]].insert(path + words[0] + '=' + Joined(words, 1));
    }
  }
}

std::vector<std::string> SlowDifferences(const SlowItems& former, const SlowItems& present) {
  std::vector<std::string> differences;
  for (const auto& [name, says] : former) {
    const auto other = present.find(name);
    if (other == present.end()) {
      differences.push_back('-' + name);
      continue;
    }
    Words gone;
    Words there;
    std::ranges::set_difference(says, other->second, std::back_inserter(gone));
    std::ranges::set_difference(other->second, says, std::back_inserter(there));
    for (const std::string& each : gone) differences.push_back(name + " -" + each);
    for (const std::string& each : there) differences.push_back(name + " +" + each);
  }
  for (const auto& [name, says] : present)
    if (!former.contains(name)) differences.push_back('+' + name);
  std::ranges::sort(differences);
  return differences;
}

}  // namespace korvane
