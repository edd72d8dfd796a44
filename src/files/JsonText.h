// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <string_view>

namespace korvane {

// The text as a JSON string with its quotation marks. Bytes that are no UTF-8 become U+FFFD.
std::string JsonString(std::string_view text);

// Builds one JSON object, its members in the order in which they are added.
class JsonObject {
 public:
  JsonObject& add(std::string_view name, std::string_view text) { return addJson(name, JsonString(text)); }
  JsonObject& add(std::string_view name, int number) { return addJson(name, std::to_string(number)); }
  JsonObject& add(std::string_view name, const JsonObject& object) { return addJson(name, object.text()); }
  JsonObject& addJson(std::string_view name, std::string_view json);

  std::string text() const { return "{" + members_ + "}"; }

 private:
  std::string members_;
};

// Builds one JSON array out of texts that are JSON.
class JsonArray {
 public:
  JsonArray& add(std::string_view json);
  std::string text() const { return "[" + elements_ + "]"; }

 private:
  std::string elements_;
};

}  // namespace korvane
