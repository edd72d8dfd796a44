// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/NamesInText.h"

#include <algorithm>
#include <memory>

#include "catalogue/CatalogueFile.h"
#include "manualeditor/BlockOutline.h"
#include "manualeditor/IniTextEdit.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

// What the outermost block at the cursor defines and names. Its columns count bytes of the control's text, of
// which names have one for each character.
std::shared_ptr<const CatalogueFile> ReadBlockOf(const IniTextEdit& text, const TextBlock& block) {
  const std::string_view all = text.utf8();
  const std::size_t begin = std::min(block.begin, all.size());
  return CatalogueFile::read({}, all.substr(begin, std::min(block.behind, all.size()) - begin));
}

const TextBlock* OutermostAtCursor(const IniTextEdit& text, const BlockOutline& outline) {
  const auto path = outline.pathAt(text.cursorLine());
  return path.empty() ? nullptr : path.front();
}

struct Cursor {
  std::uint32_t line;
  std::uint32_t column;

  bool isAt(std::uint32_t nameLine, std::uint32_t nameColumn, std::string_view name) const {
    return nameLine == line && column >= nameColumn && column <= nameColumn + name.size();
  }
};

std::optional<NameHere> NameIn(const CatalogueFile& block, const Cursor& cursor) {
  const auto here = [&](CatalogueFile::NameId name) {
    return NameHere{FromBytes(block.name(name)), block.space(name)};
  };
  for (const CatalogueFile::Use& use : block.uses()) {
    if (cursor.isAt(use.line, use.column, block.name(use.name))) return here(use.name);
  }
  for (const CatalogueFile::Definition& own : block.definitions()) {
    const std::uint32_t line = block.blocks()[own.block].firstLine;
    if (cursor.isAt(line, own.column, block.name(own.name))) return here(own.name);
  }
  return std::nullopt;
}

}  // namespace

std::optional<NameHere> NameAtCursor(const IniTextEdit& text, const BlockOutline& outline) {
  const QString word = text.wordAtCursor();
  if (word.isEmpty()) return std::nullopt;
  if (const TextBlock* block = OutermostAtCursor(text, outline)) {
    const IniTextEdit::Place place = text.placeOf(text.selection().from);
    const auto line = static_cast<std::uint32_t>(text.cursorLine() + 2) - block->firstLine;
    const auto name =
        NameIn(*ReadBlockOf(text, *block), {line, static_cast<std::uint32_t>(place.column) + 1});
    if (name && (text.selectedText().isEmpty() || name->name == word)) return name;
  }
  return NameHere{word};
}

std::optional<ItemPlace> ItemAtCursor(const IniTextEdit& text, const BlockOutline& outline) {
  const TextBlock* block = OutermostAtCursor(text, outline);
  if (block == nullptr) return std::nullopt;
  const auto read = ReadBlockOf(text, *block);
  if (read->definitions().empty()) return std::nullopt;
  const CatalogueFile::Definition& own = read->definitions().front();
  return ItemPlace{own.kind, FromBytes(read->name(own.name))};
}

}  // namespace korvane
