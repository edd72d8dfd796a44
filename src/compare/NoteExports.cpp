// SPDX-License-Identifier: GPL-3.0-or-later
// The formats for people: release notes in Markdown and HTML, by side and kind.
#include <algorithm>
#include <cctype>
#include <map>
#include <ostream>

#include "compare/ExportFormats.h"
#include "files/Windows1252.h"

namespace korvane {

namespace {

using Items = std::vector<const ItemChange*>;

constexpr std::string_view kNoSide = "General";
constexpr std::string_view kOutside = "Lines outside of blocks";
constexpr std::string_view kTextOnly = "order, spacing or comments only";

// How the notes are marked up. Texts are UTF-8.
struct Markup {
  std::string (*escaped)(std::string_view text);
  std::string_view title[2];  // before and behind
  std::string_view side[2];
  std::string_view kind[2];
  std::string_view list[2];  // of items
  std::string_view item[2];  // around the item's line and its keys
  std::string_view name[2];
  std::string_view keys[2];  // around the list of an item's keys
  std::string_view key[2];
  std::string_view paragraph[2];
};

bool IsWordByte(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || static_cast<unsigned char>(c) >= 0x80;
}

// "_" inside a word means nothing, and names are full of them.
std::string MarkdownText(std::string_view text) {
  std::string escaped;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool inWord = i > 0 && i + 1 < text.size() && IsWordByte(text[i - 1]) && IsWordByte(text[i + 1]);
    const bool special = std::string_view("\\`*<>[]|~&#").find(text[i]) != std::string_view::npos;
    if (special || (text[i] == '_' && !inWord)) escaped += '\\';
    escaped += static_cast<unsigned char>(text[i]) < ' ' ? ' ' : text[i];
  }
  return escaped;
}

std::string HtmlText(std::string_view text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else if (c == '>') {
      escaped += "&gt;";
    } else {
      escaped += static_cast<unsigned char>(c) < ' ' ? ' ' : c;
    }
  }
  return escaped;
}

constexpr Markup kMarkdown = {MarkdownText, {"# ", "\n\n"}, {"## ", "\n\n"}, {"### ", "\n\n"}, {"", "\n"},
                              {"- ", ""},   {"**", "**"},   {"\n", ""},      {"  - ", "\n"},   {"", "\n\n"}};
constexpr Markup kHtml = {HtmlText,
                          {"<h1>", "</h1>\n"},
                          {"<h2>", "</h2>\n"},
                          {"<h3>", "</h3>\n"},
                          {"<ul>\n", "</ul>\n"},
                          {"<li>", "</li>\n"},
                          {"<strong>", "</strong>"},
                          {"\n<ul>\n", "</ul>"},
                          {"<li>", "</li>\n"},
                          {"<p>", "</p>\n"}};

std::string Within(const std::string_view (&marks)[2], const std::string& text) {
  return std::string(marks[0]) + text + std::string(marks[1]);
}

class NoteWriter {
 public:
  NoteWriter(std::ostream& out, const Markup& markup) : out_(out), markup_(markup) {}

  void write(const Comparison& comparison) {
    out_ << Within(markup_.title, "Changes") << Within(markup_.paragraph, CountsOf(comparison) + '.');
    std::map<std::string, Items> sides;
    for (const ItemChange& item : comparison.items) sides[item.side].push_back(&item);
    for (const auto& [side, items] : sides)
      if (!side.empty()) writeSide(Utf8FromBytes(side), items);
    if (sides.contains("")) writeSide(std::string(kNoSide), sides[""]);
  }

 private:
  void writeSide(const std::string& side, const Items& items) {
    out_ << Within(markup_.side, markup_.escaped(side));
    for (auto at = items.begin(); at != items.end();) {
      const auto end =
          std::find_if(at, items.end(), [&](const ItemChange* item) { return item->kind != (*at)->kind; });
      writeKind({at, end});
      at = end;
    }
  }

  void writeKind(const Items& items) {
    const KindId kind = items.front()->kind;
    out_ << Within(markup_.kind, std::string(kind == kNoKind ? kOutside : KindText(kind))) << markup_.list[0];
    for (const ItemState state : {ItemState::added, ItemState::changed, ItemState::removed})
      for (const ItemChange* item : items)
        if (item->state == state) writeItem(*item);
    out_ << markup_.list[1];
  }

  void writeItem(const ItemChange& item) {
    const std::string name = item.name.empty() ? std::string(KindText(item.kind)) : Utf8FromBytes(item.name);
    out_ << markup_.item[0] << Within(markup_.name, markup_.escaped(name));
    if (item.state != ItemState::changed) {
      out_ << ": " << kItemStates[static_cast<std::size_t>(item.state)];
    } else if (item.keys.empty()) {
      out_ << ": " << kTextOnly;
    }
    if (item.keys.empty()) {
      out_ << (markup_.item[1].empty() ? "\n" : markup_.item[1]);
      return;
    }
    out_ << markup_.keys[0];
    for (const KeyChange& key : item.keys) out_ << Within(markup_.key, markup_.escaped(KeyChangeText(key)));
    out_ << markup_.keys[1] << markup_.item[1];
  }

  std::ostream& out_;
  const Markup& markup_;
};

constexpr std::string_view kHtmlHead =
    "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n<title>Changes</title>\n"
    "<style>body { font-family: sans-serif; max-width: 60em; margin: 2em auto; padding: 0 1em }</style>\n"
    "</head>\n<body>\n";

}  // namespace

void WriteMarkdown(std::ostream& out, const Comparison& comparison) {
  NoteWriter(out, kMarkdown).write(comparison);
}

void WriteHtml(std::ostream& out, const Comparison& comparison) {
  out << kHtmlHead;
  NoteWriter(out, kHtml).write(comparison);
  out << "</body>\n</html>\n";
}

}  // namespace korvane
