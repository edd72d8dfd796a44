// SPDX-License-Identifier: GPL-3.0-or-later
#include "ModificationGenerator.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <fstream>
#include <map>
#include <string>

#include "GeneratedText.h"
#include "IniPage.h"
#include "ModificationTexts.h"

namespace korvane {

namespace {

// Files of one kind of block, numbered from the second on.
struct FileSeries {
  std::string_view path;  // below Data/INI, without ".ini"
  std::string_view kind;
  int files;  // at factor 1
  int blocks;
};

constexpr std::array kSeries = {
    FileSeries{"Object/FactionUnit", "Object", 1, 370},
    FileSeries{"Object/FactionBuilding", "Object", 1, 48},
    FileSeries{"Object/FactionProp", "Object", 1, 10},
    FileSeries{"Object/CivilianBuilding", "Object", 1, 200},
    FileSeries{"Object/CivilianUnit", "Object", 1, 60},
    FileSeries{"Object/CivilianProp", "Object", 1, 60},
    FileSeries{"Object/NatureProp", "Object", 1, 60},
    FileSeries{"Object/NatureUnit", "Object", 1, 10},
    FileSeries{"Object/Division", "Object", 50, 2182},
    FileSeries{"MappedImages/TextureSize_512/Page", "MappedImage", 36, 2600},
    FileSeries{"Armor", "Armor", 1, 150},
    FileSeries{"CommandButton", "CommandButton", 1, 1500},
    FileSeries{"CommandSet", "CommandSet", 1, 700},
    FileSeries{"FXList", "FXList", 1, 1000},
    FileSeries{"Locomotor", "Locomotor", 1, 300},
    FileSeries{"Music", "MusicTrack", 1, 100},
    FileSeries{"ObjectCreationList", "ObjectCreationList", 1, 900},
    FileSeries{"ParticleSystem", "ParticleSystem", 1, 1700},
    FileSeries{"Science", "Science", 1, 150},
    FileSeries{"SoundEffects", "AudioEvent", 1, 1500},
    FileSeries{"SpecialPower", "SpecialPower", 1, 200},
    FileSeries{"Speech", "DialogEvent", 1, 3050},
    FileSeries{"Upgrade", "Upgrade", 1, 149},
    FileSeries{"Voice", "AudioEvent", 1, 2000},
    FileSeries{"Weapon", "Weapon", 1, 1000},
    FileSeries{"Default/Upgrade", "Upgrade", 1, 1},
};

constexpr std::array<std::string_view, 6> kArmies = {"America", "China", "GLA", "Boss", "Civilian", "Tech"};
constexpr std::array<std::string_view, 7> kStates = {"DAMAGED",    "REALLYDAMAGED",  "RUBBLE",      "NIGHT",
                                                     "SNOW NIGHT", "MOVING DAMAGED", "NIGHT RUBBLE"};

constexpr int kFavourite = 7;        // the item of each kind that is named most,
constexpr int kFavouredEvery = 16;   // once in so many references
constexpr int kMissingEvery = 4001;  // references of which one names nothing
constexpr int kFarEvery = 10;        // references of which one goes anywhere; the others stay with what
constexpr int kNear = 15;            // belongs together: so many items of each kind
constexpr int kWhole = 4096;

const BlockText& TextOf(std::string_view kind) {
  return *std::find_if(kBlockTexts.begin(), kBlockTexts.end(),
                       [kind](const BlockText& each) { return each.kind == kind; });
}

std::string NameOf(const BlockText& kind, int index) {
  return Numbered(std::string(Pick(kArmies, index)).append(kind.stem), index);
}

// Calls `take` for each line of a text that begins with an end of line.
template <typename Take>
void ForEachLine(std::string_view text, Take take) {
  for (std::size_t begin = 1; begin < text.size();) {
    const std::size_t end = text.find('\n', begin);
    take(text.substr(begin, end - begin));
    begin = end + 1;
  }
}

class Generator {
 public:
  Generator(std::filesystem::path folder, int factor) : folder_(std::move(folder)), factor_(factor) {
    for (const FileSeries& series : kSeries) items_[series.kind] += series.blocks * factor;
  }

  void writeAll() {
    for (const FileSeries& series : kSeries) {
      const int files = series.files * factor_;
      for (int i = 0; i < files; ++i) writeFile(series, i, Share(series.blocks * factor_, files, i));
    }
  }

 private:
  void writeFile(const FileSeries& series, int index, int blocks) {
    IniPage page(0);
    for (int i = 0; i < blocks; ++i) writeBlock(page, TextOf(series.kind));
    const std::string number = index == 0 ? "" : std::to_string(index + 1);
    const auto path = folder_ / "Data" / "INI" / std::string(series.path).append(number).append(".ini");
    std::filesystem::create_directories(path.parent_path());
    page.save(path);
  }

  void writeBlock(IniPage& page, const BlockText& kind) {
    int& written = written_[kind.kind];
    share_ = static_cast<int>(std::int64_t{written} * kWhole / items_[kind.kind]);
    const std::string name = NameOf(kind, written++);
    ForEachLine(kind.text, [&](std::string_view line) {
      if (line == "{States}") return writeStates(page);
      page.line(filled(line, name));
    });
    page.line("");
  }

  void writeStates(IniPage& page) {
    for (const std::string_view state : kStates)
      ForEachLine(kStateText, [&](std::string_view line) { page.line(filled(line, state)); });
  }

  // The line with something in the place of each pair of braces.
  std::string filled(std::string_view line, std::string_view name) {
    std::string text;
    for (std::size_t at = 0; at < line.size();) {
      const std::size_t open = std::min(line.find('{', at), line.size());
      const std::size_t close = line.find('}', open);
      text += line.substr(at, open - at);
      if (close == line.npos) break;
      text += meaning(line.substr(open + 1, close - open - 1), name);
      at = close + 1;
    }
    return text;
  }

  std::string meaning(std::string_view word, std::string_view name) {
    if (word == "*" || word == "State") return std::string(name);
    if (word.front() >= '0' && word.front() <= '9') return number(word);
    return reference(TextOf(word));
  }

  std::string number(std::string_view range) {
    int low = 0;
    int high = 0;
    const auto end = std::from_chars(range.data(), range.data() + range.size(), low).ptr;
    std::from_chars(end + 1, range.data() + range.size(), high);
    return std::to_string(Between(low, high, ++numbers_));
  }

  std::string reference(const BlockText& kind) {
    ++references_;
    if (references_ % kMissingEvery == 0) return NameOf(kind, 0) + "Lost";
    if (references_ % kFavouredEvery == 0) return NameOf(kind, kFavourite);
    const int items = items_[kind.kind];
    if (references_ % kFarEvery == 0) return NameOf(kind, Between(0, items - 1, references_));
    return NameOf(
        kind,
        (static_cast<int>(std::int64_t{share_} * items / kWhole) + Between(0, kNear, references_)) % items);
  }

  std::filesystem::path folder_;
  int factor_;
  std::map<std::string_view, int> items_;    // of each kind
  std::map<std::string_view, int> written_;  // of them
  int share_ = 0;                            // of its kind that is written, of kWhole
  int numbers_ = 0;
  int references_ = 0;
};

}  // namespace

void GenerateModification(const std::filesystem::path& folder, int factor) {
  std::filesystem::create_directories(folder);
  const std::ofstream program(folder / "generals.exe", std::ios::binary);
  Generator(folder, factor).writeAll();
}

}  // namespace korvane
