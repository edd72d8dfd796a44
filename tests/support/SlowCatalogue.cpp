// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/SlowCatalogue.h"

#include <algorithm>
#include <cctype>

#include "catalogue/CatalogueFile.h"
#include "catalogue/Tables.h"

namespace korvane {

namespace {

using Texts = std::vector<std::string>;

char LowByte(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

std::string Low(std::string_view text) {
  std::string low(text);
  for (char& c : low) c = LowByte(c);
  return low;
}

bool Same(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](char x, char y) { return LowByte(x) == LowByte(y); });
}

bool Separates(char c) {
  return static_cast<unsigned char>(c) <= 32 || c == '=';
}

Texts Lines(std::string_view text) {
  Texts lines(1);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool crLf = text[i] == '\r' && i + 1 < text.size() && text[i + 1] == '\n';
    if (text[i] == '\n' || text[i] == '\r') {
      lines.emplace_back();
    } else {
      lines.back() += text[i];
    }
    if (crLf) ++i;
  }
  if (lines.back().empty()) lines.pop_back();
  return lines;
}

struct Piece {
  std::string text;
  std::size_t column;
};

struct Line {
  std::vector<Piece> words;  // the first one ends at a blank or "=", quotation marks or not
  bool sign = false;
  bool firstColumn = false;
};

std::string WithoutComment(std::string line) {
  line = line.substr(0, line.find(';'));
  for (std::size_t i = 0; i + 1 < line.size(); ++i)
    if (line[i] == '/' && line[i + 1] == '/' && (i == 0 || Separates(line[i - 1]))) return line.substr(0, i);
  return line;
}

Line Read(std::string line, bool first) {
  const std::size_t mark = first && line.starts_with("\xEF\xBB\xBF") ? 3 : 0;
  line.replace(0, mark, mark, ' ');
  line = WithoutComment(line);
  Line read;
  std::size_t i = 0;
  while (i < line.size() && static_cast<unsigned char>(line[i]) <= 32) ++i;
  if (i == line.size()) return read;
  read.firstColumn = i == mark;
  read.words.push_back({"", i + 1});
  while (i < line.size() && !Separates(line[i])) read.words[0].text += line[i++];
  while (i < line.size() && static_cast<unsigned char>(line[i]) <= 32) ++i;
  read.sign = i < line.size() && line[i] == '=';
  while (i < line.size()) {
    while (i < line.size() && Separates(line[i])) ++i;
    if (i == line.size()) break;
    read.words.push_back({"", i + 1});
    const bool quoted = line[i] == '"' && line.find('"', i + 1) != std::string::npos;
    int marks = quoted ? 2 : 0;
    while (i < line.size() && (marks > 0 || !Separates(line[i]))) {
      if (line[i] == '"' && marks > 0) --marks;
      read.words.back().text += line[i++];
    }
  }
  return read;
}

// "Object/Draw=X/ConditionState" as the rows for any module have it.
std::string General(const std::string& path) {
  std::string general;
  for (std::size_t i = 0; i < path.size(); ++i) {
    general += path[i];
    if (path[i] == '=') {
      general += '*';
      while (i + 1 < path.size() && path[i + 1] != '/') ++i;
    }
  }
  return general;
}

std::string Module(const std::string& path) {
  const std::size_t sign = path.rfind('=');
  return sign == std::string::npos || path.find('/', sign) != std::string::npos ? "" : path.substr(sign + 1);
}

bool Fits(std::string_view pattern, const std::string& word) {
  if (Same(pattern, word)) return true;
  const std::size_t digits = word.find_last_not_of("0123456789") + 1;
  return digits > 0 && digits < word.size() && Same(pattern, word.substr(0, digits) + "#");
}

const KindRow* KindOf(const std::string& word) {
  for (const KindRow& row : KindRows())
    if (Same(row.kind, word)) return &row;
  return nullptr;
}

struct Open {
  std::string path;   // for its keys and blocks
  std::string shown;  // of its type
  std::size_t line;
  std::string top;  // header of the outermost block
  std::size_t fact;
};

const BlockRow* ChildOf(const std::string& path, const std::string& word) {
  for (const BlockRow& row : BlockRows())
    if (Same(row.parent, General(path)) && Fits(row.keyword.substr(0, row.keyword.find('=')), word))
      return &row;
  return nullptr;
}

bool IsModule(const BlockRow& row) {
  return row.keyword.find('=') != std::string_view::npos;
}

bool ShapeFits(const BlockRow& row, const Line& line) {
  const std::size_t words = line.words.size() - 1;
  const std::size_t wanted = static_cast<std::size_t>(row.words[0] - '0');
  return (!line.sign || row.sign == "either") &&
         (row.words.back() == '+' ? words >= wanted : words == wanted);
}

bool KnowsKey(const std::string& path, const std::string& key) {
  const auto has = [&](const auto& rows, const std::string& place) {
    return std::any_of(rows.begin(), rows.end(),
                       [&](const auto& row) { return Fits(row.key, key) && Same(row.path, place); });
  };
  const std::string general = General(path);
  return key[0] != '<' && (has(KeyRows(), path) || has(ReferenceRows(), general) ||
                           has(WordsRows(), general) || has(OutsideRows(), general));
}

bool Special(const std::string& word, std::string_view space) {
  return std::any_of(SpecialRows().begin(), SpecialRows().end(), [&](const SpecialRow& row) {
    return Same(row.word, word) && (row.space.empty() || row.space == space);
  });
}

class SlowReading {
 public:
  Texts read(std::string_view text) {
    for (const std::string& each : Lines(text)) {
      ++number_;
      const Line line = Read(each, number_ == 1);
      if (!line.words.empty()) take(line);
    }
    while (!open_.empty()) close(number_);
    return std::move(facts_);
  }

 private:
  void take(const Line& line) {
    const std::string& word = line.words[0].text;
    if (Same(word, "end")) {
      if (!open_.empty()) close(number_);
      return;
    }
    if (begins(line)) {
      while (!open_.empty()) close(number_ - 1);
      return beginKind(*KindOf(word), line);
    }
    if (open_.empty()) return;
    const BlockRow* child = ChildOf(open_.back().path, word);
    if (child != nullptr && (!line.sign || child->sign == "either") && open_.size() < 16)
      return begin(*child, line);
    if (!KnowsKey(open_.back().path, word) && child == nullptr && beginInParent(line)) return;
    takeNames(open_.back().path, word, line);
  }

  bool begins(const Line& line) const {
    const KindRow* kind = KindOf(line.words[0].text);
    if (kind == nullptr || line.sign) return false;
    const bool named = line.words.size() > 1;
    const bool nameless = kind->names == "0";
    if (open_.empty()) return named || nameless;
    if (line.firstColumn && named) return !nameless;
    if (open_.size() >= 16) return false;
    const std::string& path = open_.back().path;
    if (ChildOf(path, line.words[0].text) != nullptr || KnowsKey(path, line.words[0].text)) return false;
    if (line.words.size() - 1 != static_cast<std::size_t>(kind->names[0] - '0')) return false;
    return named || line.firstColumn;
  }

  void beginKind(const KindRow& kind, const Line& line) {
    const std::string path(kind.like.empty() ? kind.kind : kind.like);
    open_.push_back({path, std::string(kind.kind), number_, line.words[0].text, facts_.size()});
    if (line.words.size() > 1) open_.back().top += " " + line.words[1].text;
    facts_.emplace_back();
    if (!kind.space.empty() && line.words.size() > 1) {
      const Piece& name = line.words[1];
      facts_.push_back("define " + at(name) + std::string(kind.kind) + ' ' + name.text);
    }
    takeNames(std::string(kind.kind), "<header>", line);
  }

  void begin(const BlockRow& row, const Line& line) {
    std::string path = open_.back().path + '/' + std::string(row.keyword);
    if (IsModule(row)) {
      path.pop_back();
      const std::string module = line.words.size() > 1 ? line.words[1].text : "";
      path += module.find('/') == std::string::npos ? module : "*";  // no module of the rows has one
    }
    const std::string shown = General(path);
    open_.push_back(
        {row.like.empty() ? path : std::string(row.like), shown, number_, open_.front().top, facts_.size()});
    facts_.emplace_back();
    takeNames(path, "<header>", line);
  }

  bool beginInParent(const Line& line) {
    if (open_.size() > 16) return false;
    for (std::size_t depth = open_.size() - 1; depth-- > 0;) {
      const BlockRow* row = ChildOf(open_[depth].path, line.words[0].text);
      if (row == nullptr || !ShapeFits(*row, line) || open_.size() >= 16) continue;
      while (open_.size() > depth + 1) close(number_ - 1);
      begin(*row, line);
      return true;
    }
    return false;
  }

  void close(std::size_t last) {
    const Open& open = open_.back();
    facts_[open.fact] = "block " + std::to_string(open.line) + '-' + std::to_string(last) + ' ' + open.shown;
    open_.pop_back();
  }

  void takeNames(const std::string& path, const std::string& key, const Line& line) {
    if (key[0] == '<' && key != "<header>") return;
    if (key == "<header>" && Same(line.words[0].text, "<header>")) return;
    for (const ReferenceRow& row : ReferenceRows()) {
      if (!Fits(row.key, key) || !Same(row.path, General(path)) || !holdsIn(row, Module(path))) continue;
      if (row.position.back() == ':') {
        takeLabelled(row, line);
      } else {
        const std::size_t first = static_cast<std::size_t>(row.position[0] - '0');
        const std::size_t last = row.position.back() == '+' ? line.words.size() : first;
        for (std::size_t i = first; i <= last && i < line.words.size(); ++i) use(row, line.words[i]);
      }
    }
  }

  static bool holdsIn(const ReferenceRow& row, const std::string& module) {
    if (row.modules.empty()) return true;
    return !module.empty() &&
           ("," + Low(row.modules) + ",").find("," + Low(module) + ",") != std::string::npos;
  }

  void takeLabelled(const ReferenceRow& row, const Line& line) {
    const std::size_t size = row.position.size();
    for (std::size_t i = 1; i < line.words.size(); ++i) {
      const Piece& word = line.words[i];
      if (!Same(word.text.substr(0, size), row.position)) continue;
      if (word.text.size() > size) {
        use(row, {word.text.substr(size), word.column + size});
      } else if (i + 1 < line.words.size()) {
        use(row, line.words[i + 1]);
      }
    }
  }

  void use(const ReferenceRow& row, const Piece& name) {
    if (Special(name.text, row.space)) return;
    facts_.push_back("use " + at(name) + std::string(row.space) + ' ' + name.text + " in " +
                     open_.front().top);
  }

  std::string at(const Piece& word) const {
    return std::to_string(number_) + ':' + std::to_string(word.column) + ' ';
  }

  std::size_t number_ = 0;
  std::vector<Open> open_;
  Texts facts_;
};

std::string Place(std::uint32_t line, std::uint32_t column) {
  return std::to_string(line) + ':' + std::to_string(column) + ' ';
}

}  // namespace

Texts SlowFacts(std::string_view text) {
  Texts facts = SlowReading().read(text);
  std::sort(facts.begin(), facts.end());
  return facts;
}

Texts FactsOf(const CatalogueFile& file) {
  const GameStructure& structure = GameStructure::get();
  Texts facts;
  const auto top = [&](std::uint32_t block) {
    const std::string_view header = file.header(file.outermost(block));
    const Line line = Read(std::string(header), false);
    return line.words[0].text + (line.words.size() > 1 ? " " + line.words[1].text : "");
  };
  for (const auto& block : file.blocks())
    facts.push_back("block " + std::to_string(block.firstLine) + '-' + std::to_string(block.lastLine) + ' ' +
                    General(structure.type(block.type).path));
  for (const auto& each : file.definitions())
    facts.push_back("define " + Place(file.blocks()[each.block].firstLine, each.column) +
                    std::string(structure.kinds()[each.kind].name) + ' ' + std::string(file.name(each.name)));
  for (const auto& each : file.uses())
    facts.push_back("use " + Place(each.line, each.column) +
                    std::string(structure.spaces()[file.space(each.name)]) + ' ' +
                    std::string(file.name(each.name)) + " in " + top(each.block));
  std::sort(facts.begin(), facts.end());
  return facts;
}

}  // namespace korvane
