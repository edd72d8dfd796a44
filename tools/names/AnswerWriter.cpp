// SPDX-License-Identifier: GPL-3.0-or-later
#include "AnswerWriter.h"

#include <algorithm>

#include "Printable.h"
#include "catalogue/StructureReader.h"
#include "files/JsonText.h"
#include "files/Windows1252.h"

namespace korvane {

namespace {

std::string WithSlashes(std::string path) {
  std::replace(path.begin(), path.end(), '\\', '/');
  return path;
}

// Archives name their files in the bytes of the game's texts, the system in UTF-8.
std::string PathOf(const SourceFile& source) {
  return WithSlashes(source.archived ? Utf8FromBytes(source.path) : source.path);
}

std::string ArchiveOf(const SourceFile& source) {
  return source.archived ? source.container.substr(source.container.rfind('\\') + 1) : std::string();
}

std::string_view Trimmed(std::string_view text) {
  const auto isBlank = [](char c) { return static_cast<unsigned char>(c) <= ' '; };
  while (!text.empty() && isBlank(text.front())) text.remove_prefix(1);
  while (!text.empty() && isBlank(text.back())) text.remove_suffix(1);
  return text;
}

// The headers of the blocks, the outermost first.
std::string BlocksOf(const CatalogueFile& file, std::uint32_t block) {
  const std::uint32_t parent = file.blocks()[block].parent;
  const std::string before = parent == CatalogueFile::kNone ? std::string() : BlocksOf(file, parent) + " / ";
  return before + Utf8FromBytes(file.header(block));
}

JsonObject ObjectOf(const CatalogueFile& file, std::uint32_t line, std::uint32_t column,
                    std::string_view kind, std::string_view name) {
  JsonObject object;
  object.add("file", PathOf(file.source()));
  if (file.source().archived) object.add("archive", ArchiveOf(file.source()));
  object.add("line", static_cast<int>(line)).add("column", static_cast<int>(column)).add("kind", kind);
  object.add("name", Utf8FromBytes(name));
  return object;
}

}  // namespace

void AnswerWriter::write(const FoundDefinition& definition) {
  const std::string_view kind = GameStructure::get().kinds()[definition.kind].name;
  ++written_;
  if (format_ == AnswerFormat::text) {
    writeText(*definition.file, definition.line, definition.column, kind, definition.name, {});
  } else {
    out_ << ObjectOf(*definition.file, definition.line, definition.column, kind, definition.name).text()
         << '\n';
  }
}

void AnswerWriter::write(const FoundUse& use, std::string_view kind) {
  const std::string_view text = Trimmed(lines_.line(use.file->source(), use.line));
  ++written_;
  if (format_ == AnswerFormat::text) {
    writeText(*use.file, use.line, use.column, kind, use.name, text);
    return;
  }
  JsonObject object = ObjectOf(*use.file, use.line, use.column, kind, use.name);
  object.add("block", BlocksOf(*use.file, use.block));
  object.add("key", Utf8FromBytes(WordReader(text, 1).next().text));
  out_ << object.text() << '\n';
}

void AnswerWriter::writeText(const CatalogueFile& file, std::uint32_t line, std::uint32_t column,
                             std::string_view kind, std::string_view name, std::string_view text) {
  const std::string archive = ArchiveOf(file.source());
  out_ << Printable(archive.empty() ? archive : archive + '/') << Printable(PathOf(file.source())) << ':'
       << line << ':' << column << ": " << kind << ' ' << Printable(Utf8FromBytes(name));
  if (!text.empty()) out_ << ": " << Printable(Utf8FromBytes(text));
  out_ << '\n';
}

}  // namespace korvane
