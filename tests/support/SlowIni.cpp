// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/SlowIni.h"

namespace korvane::slow {

namespace {

std::string Lower(std::string text) {
  for (char& c : text) {
    if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
  }
  return text;
}

bool Begins(const std::string& text, const std::string& with) {
  return text.substr(0, with.size()) == with;
}

std::string Trim(std::string text) {
  while (!text.empty() && text[0] == ' ') text.erase(0, 1);
  while (!text.empty() && text[text.size() - 1] == ' ') text.pop_back();
  return text;
}

Texts SplitAt(const std::string& text, const std::string& separator) {
  Texts pieces = {""};
  for (std::size_t i = 0; i < text.size();) {
    if (text.substr(i, separator.size()) == separator) {
      pieces.emplace_back();
      i += separator.size();
    } else {
      pieces.back() += text[i++];
    }
  }
  return pieces;
}

std::string Join(const Texts& pieces) {
  std::string text;
  for (std::size_t i = 0; i < pieces.size(); ++i) text += (i == 0 ? "" : "\r\n") + pieces[i];
  return text;
}

std::string Value(std::string line) {
  if (Begins(line, ";")) line.erase(0, 1);
  return SplitAt(Trim(SplitAt(line, ";").front()), " ").back();
}

}  // namespace

Texts Lines(const std::string& file) {
  Texts lines;
  std::string line;
  bool begun = false;
  for (std::size_t i = 0; i < file.size(); ++i) {
    begun = file[i] != '\r';
    if (begun) {
      line += file[i];
      continue;
    }
    if (i + 1 < file.size() && file[i + 1] == '\n') ++i;
    lines.push_back(line);
    line.clear();
  }
  if (begun) lines.push_back(line);
  return lines;
}

std::string ObjectText(const std::string& file, const std::string& kind, const std::string& name) {
  std::string text;
  bool inBlock = false;
  for (const std::string& line : Lines(file)) {
    if (Begins(Lower(line), Lower(kind + " " + name))) inBlock = true;
    if (inBlock) text += line + "\r\n";
    if (inBlock && Begins(Lower(line), "end")) break;
  }
  return text;
}

std::string ParameterValue(const std::string& text, const std::string& key) {
  std::string collection;
  for (const std::string& piece : SplitAt(text, "\r\n")) {
    if (Begins(Trim(piece), key)) collection += piece + "\r\n";
  }
  Texts values = SplitAt(collection, "\r\n");
  for (std::size_t i = 0; i + 1 < values.size(); ++i) values[i] = Value(values[i]);
  return Join(values);
}

std::optional<std::string> SingleValue(const std::string& text, const std::string& key) {
  const std::string values = ParameterValue(text, key);
  if (values.empty()) return std::nullopt;
  return values.substr(0, values.size() - 2);
}

std::string WithoutBlankLines(const std::string& text) {
  Texts kept;
  for (const std::string& piece : SplitAt(text, "\r\n")) {
    if (!Trim(piece).empty()) kept.push_back(piece);
  }
  return Join(kept);
}

Texts WeaponSets(const std::string& text) {
  Texts sets = {""};
  for (const std::string& line : SplitAt(text, "\r\n")) {
    if (Begins(line, "  WeaponSet")) sets.emplace_back();
  }
  const std::size_t n = sets.size() - 1;
  std::size_t k = 0;
  bool inBlock = false;
  for (const std::string& line : SplitAt(text, "\r\n")) {
    if (Begins(line, "  WeaponSet")) inBlock = true;
    if (inBlock && k == n) break;
    if (inBlock) sets[k] += line + "\r\n";
    if (inBlock && Begins(line, "  End")) {
      ++k;
      inBlock = false;
    }
  }
  return sets;
}

}  // namespace korvane::slow
