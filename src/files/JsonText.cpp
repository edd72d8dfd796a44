// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/JsonText.h"

#include <array>
#include <cstddef>
#include <cstdio>

namespace korvane {

namespace {

constexpr std::string_view kNoCharacter = "\xEF\xBF\xBD";  // U+FFFD

// How many bytes the UTF-8 character at the start takes; 0 when there is none.
std::size_t CharacterLength(std::string_view text) {
  const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
  const unsigned char first = byte(0);
  const std::size_t length = first < 0x80                    ? 1
                             : first >= 0xC2 && first < 0xE0 ? 2
                             : first >= 0xE0 && first < 0xF0 ? 3
                             : first >= 0xF0 && first < 0xF5 ? 4
                                                             : 0;
  if (length == 0 || length > text.size()) return 0;
  for (std::size_t i = 1; i < length; ++i)
    if ((byte(i) & 0xC0) != 0x80) return 0;
  const bool tooSmall = (first == 0xE0 && byte(1) < 0xA0) || (first == 0xF0 && byte(1) < 0x90);
  const bool noCharacter = (first == 0xED && byte(1) >= 0xA0) || (first == 0xF4 && byte(1) >= 0x90);
  return tooSmall || noCharacter ? 0 : length;
}

void AppendEscaped(std::string& json, char c) {
  constexpr std::string_view kShort = "\"\\\b\f\n\r\t";
  constexpr std::string_view kLetters = "\"\\bfnrt";
  if (const std::size_t at = kShort.find(c); at != std::string_view::npos) {
    json.append("\\").push_back(kLetters[at]);
    return;
  }
  std::array<char, 8> code{};
  std::snprintf(code.data(), code.size(), "\\u%04x", static_cast<unsigned>(c));
  json += code.data();
}

}  // namespace

std::string JsonString(std::string_view text) {
  std::string json = "\"";
  while (!text.empty()) {
    const std::size_t length = CharacterLength(text);
    const char first = text[0];
    if (length == 0)
      json += kNoCharacter;
    else if (length == 1 && (static_cast<unsigned char>(first) < 0x20 || first == '"' || first == '\\'))
      AppendEscaped(json, first);
    else
      json += text.substr(0, length);
    text.remove_prefix(length == 0 ? 1 : length);
  }
  return json + "\"";
}

JsonObject& JsonObject::addJson(std::string_view name, std::string_view json) {
  if (!members_.empty()) members_ += ",";
  members_.append(JsonString(name)).append(":").append(json);
  return *this;
}

JsonArray& JsonArray::add(std::string_view json) {
  if (!elements_.empty()) elements_ += ",";
  elements_ += json;
  return *this;
}

}  // namespace korvane
