// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Places.h"

#include "files/NativePath.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr QStringView kDataFolder = u"Data\\INI\\";

}  // namespace

FilePlace PlaceOf(const CatalogueFile& file, std::uint32_t line, std::uint32_t column, std::size_t length) {
  return PlaceOf(file.source(), line, column, length);
}

FilePlace PlaceOf(const SourceFile& source, std::uint32_t line, std::uint32_t column, std::size_t length) {
  const bool loose = source.own && !source.archived;
  return {QString::fromStdString(source.path), loose ? QString() : QString::fromStdString(source.container),
          static_cast<int>(line), static_cast<int>(column), static_cast<int>(length)};
}

ItemPlace ItemOf(const FoundDefinition& definition) {
  return {definition.kind, FromBytes(definition.name),
          PlaceOf(*definition.file, definition.line, definition.column, definition.name.size())};
}

QString ShownPath(QString path) {
  if (path.startsWith(kDataFolder, Qt::CaseInsensitive)) path.remove(0, kDataFolder.size());
  return path;
}

QString ArchiveName(const QString& archive) {
  return archive.mid(archive.lastIndexOf('\\') + 1);
}

QString ShownPlace(const FilePlace& place) {
  const QString at = QStringLiteral("%1, line %2").arg(ShownPath(place.path)).arg(place.line);
  return place.archive.isEmpty() ? at : QStringLiteral("%1 (%2)").arg(at, ArchiveName(place.archive));
}

QString KindName(KindId kind) {
  const auto kinds = GameStructure::get().kinds();
  return kind < kinds.size() ? FromBytes(kinds[kind].name) : QString();
}

}  // namespace korvane
