// SPDX-License-Identifier: GPL-3.0-or-later
#include "search/LineSearches.h"

#include <algorithm>

#include "catalogue/LineCutter.h"
#include "catalogue/LineTexts.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr qsizetype kMostOfLine = 300;  // characters
constexpr std::uint64_t kLinesPerLook = 1024;

QString LineText(std::string_view line) {
  return FromBytes(line.substr(0, kMostOfLine)).trimmed();
}

QString FileCaption(const FilePlace& place) {
  QString caption = ShownPlace(place);
  return caption.remove(QStringLiteral(", line %1").arg(place.line));
}

// The block that stands for itself around a found line.
struct OuterBlock {
  QString kind = QStringLiteral("Outside of all blocks");
  NameHere name{};
};

OuterBlock OuterOf(const CatalogueFile& file, std::uint32_t block) {
  if (block == CatalogueFile::kNone) return {};
  const std::uint32_t outer = file.outermost(block);
  const KindId kind = GameStructure::get().type(file.blocks()[outer].type).kind;
  OuterBlock found{kind == kNoKind ? FromBytes(file.header(outer)) : KindName(kind)};
  const auto definitions = file.definitions();
  const auto own = std::lower_bound(
      definitions.begin(), definitions.end(), outer,
      [](const CatalogueFile::Definition& each, std::uint32_t at) { return each.block < at; });
  if (own != definitions.end() && own->block == outer) {
    found.name = {FromBytes(file.name(own->name)), file.space(own->name)};
  }
  return found;
}

void TellDefinitions(LineFinder::Teller& teller, const Catalogue& names, const NameHere& name,
                     LineTexts& texts) {
  for (const FoundDefinition& each : names.definitions(name.space, ToBytes(name.name))) {
    const ItemPlace item = ItemOf(each);
    FoundLine line{{"Defined", KindName(item.kind) + ' ' + item.name + ", " + FileCaption(item.place)},
                   item.place,
                   LineText(texts.line(each.file->source(), each.line)),
                   {item.name, GameStructure::get().kinds()[item.kind].space}};
    line.definition = true;
    if (!teller.found(std::move(line))) return;
  }
}

// What a use of the names in a block is shown as.
FoundLine LineOfUse(const Catalogue& names, const FoundUse& use, LineTexts& texts) {
  const GameStructure& structure = GameStructure::get();
  FoundLine line;
  line.place = PlaceOf(*use.file, use.line, use.column, use.name.size());
  line.text = LineText(texts.line(use.file->source(), use.line));
  line.name = {FromBytes(use.name), use.space};
  line.nowhere = !names.defines(use.space, use.name);
  line.branches = {KindName(structure.kindOfSpace(use.space)),
                   line.nowhere ? line.name.name + ", defined nowhere" : line.name.name};
  return line;
}

const CatalogueFile* FileAt(const Catalogue& names, const FilePlace& place) {
  return names.file(place.path.toStdString());
}

std::uint32_t OutermostAt(const CatalogueFile& file, const FilePlace& place) {
  const std::uint32_t block = file.blockAt(static_cast<std::uint32_t>(place.line));
  return block == CatalogueFile::kNone ? block : file.outermost(block);
}

bool SearchText(LineFinder::Teller& teller, const SourceFile& file, std::string_view bytes,
                const QRegularExpression& pattern) {
  const QString text = FromBytes(bytes);  // a character for each byte
  LineCutter lines(bytes);
  std::string_view line;
  for (std::uint32_t number = 1; lines.next(line); ++number) {
    if (number % kLinesPerLook == 0 && !teller.goesOn()) return false;
    const QStringView characters(text.data() + (line.data() - bytes.data()),
                                 static_cast<qsizetype>(line.size()));
    const QRegularExpressionMatch match = pattern.match(characters);
    if (!match.hasMatch()) continue;
    const FilePlace place = PlaceOf(file, number, static_cast<std::uint32_t>(match.capturedStart()) + 1,
                                    static_cast<std::size_t>(match.capturedLength()));
    if (!teller.found({{FileCaption(place)}, place, LineText(line)})) return false;
  }
  return true;
}

}  // namespace

LineFinder::Search UsesOf(CataloguePtr names, NameHere name) {
  return [names = std::move(names), name = std::move(name)](LineFinder::Teller& teller) {
    LineTexts texts;
    TellDefinitions(teller, *names, name, texts);
    for (const FoundUse& use : names->uses(name.space, ToBytes(name.name))) {
      const FilePlace place = PlaceOf(*use.file, use.line, use.column, use.name.size());
      const OuterBlock block = OuterOf(*use.file, use.block);
      QString caption = FileCaption(place);
      if (!block.name.name.isEmpty()) caption = block.name.name + ", " + caption;
      FoundLine line{
          {block.kind, caption}, place, LineText(texts.line(use.file->source(), use.line)), block.name};
      if (!teller.found(std::move(line))) return;
    }
  };
}

LineFinder::Search NamesUsedAt(CataloguePtr names, const FilePlace& place) {
  return [names = std::move(names), place](LineFinder::Teller& teller) {
    const CatalogueFile* file = FileAt(*names, place);
    const std::uint32_t block = file == nullptr ? CatalogueFile::kNone : OutermostAt(*file, place);
    if (block == CatalogueFile::kNone) return;
    LineTexts texts;
    for (const CatalogueFile::Use& use : file->usesIn(block)) {
      if (!teller.found(LineOfUse(*names, FoundIn(*file, use), texts))) return;
    }
  };
}

FilePlace StartOfBlock(const Catalogue& names, const ItemPlace& block) {
  if (block.kind == kNoKind) return block.place;
  const SpaceId space = GameStructure::get().kinds()[block.kind].space;
  std::optional<FilePlace> first;
  for (const FoundDefinition& each : names.definitions(space, ToBytes(block.name))) {
    const FilePlace place = ItemOf(each).place;
    if (place.path.compare(block.place.path, Qt::CaseInsensitive) == 0) return place;
    if (!first) first = place;
  }
  return first.value_or(block.place);
}

QString BlockCaption(const Catalogue& names, const FilePlace& place) {
  const CatalogueFile* file = FileAt(names, place);
  const std::uint32_t block = file == nullptr ? CatalogueFile::kNone : OutermostAt(*file, place);
  return block == CatalogueFile::kNone ? QString() : FromBytes(file->header(block));
}

QRegularExpression TextToFind::pattern() const {
  QString sought = expression ? text : QRegularExpression::escape(text);
  if (wholeWords) sought = QStringLiteral("(?<!\\w)(?:%1)(?!\\w)").arg(sought);
  const auto options =
      letterCase ? QRegularExpression::NoPatternOption : QRegularExpression::CaseInsensitiveOption;
  return QRegularExpression(sought, options);
}

LineFinder::Search LinesWith(CatalogueSources sources, const QRegularExpression& pattern) {
  return [sources = std::move(sources), pattern](LineFinder::Teller& teller) {
    const auto list = ListSourceFiles(sources, teller.stop());
    if (!list) return;
    for (const SkippedFile& each : list->skipped) {
      teller.skipped(QString::fromStdString(each.path + ": " + each.reason));
    }
    SourceReader reader;
    const int all = static_cast<int>(list->files.size());
    int done = 0;
    for (const SourceFile& file : list->files) {
      if (!teller.goesOn()) return;
      const std::string fault = reader.read(file);
      if (!fault.empty()) teller.skipped(QString::fromStdString(WholePath(file) + ": " + fault));
      if (fault.empty() && !SearchText(teller, file, reader.bytes(), pattern)) return;
      teller.step(++done, all);
    }
  };
}

}  // namespace korvane
