// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/TextTips.h"

#include <QHelpEvent>
#include <QToolTip>
#include <Qsci/qsciscintilla.h>

#include <algorithm>

#include "app/CatalogueService.h"
#include "app/Places.h"
#include "catalogue/FoldedText.h"
#include "catalogue/StructureReader.h"
#include "controls/ShownText.h"
#include "manualeditor/BlockOutline.h"
#include "manualeditor/FindingMarks.h"
#include "manualeditor/IniTextEdit.h"
#include "platform/TextEncoding.h"
#include "writing/BlockCopy.h"

namespace korvane {

namespace {

using Sci = QsciScintillaBase;

constexpr std::size_t kShownLines = 5;      // of a block
constexpr qsizetype kLookBack = 256 << 10;  // bytes in which the header of the block is looked for
constexpr qsizetype kLookAhead = 16 << 10;  // bytes in which a block's first lines are looked for

std::string Indented(const std::vector<std::string>& lines) {
  std::string text;
  for (const std::string& line : lines) text += "\n  " + line;
  return text;
}

std::string Heading(const FoundDefinition& item) {
  return std::string(GameStructure::get().kinds()[item.kind].name) + ' ' + std::string(item.name) + '\n' +
         ToBytes(ShownPlace(ItemOf(item).place));
}

// "Object", "Behavior = PhysicsBehavior"
std::string BlockName(BlockTypeId block) {
  const BlockType& type = GameStructure::get().type(block);
  const bool module = !type.module.empty() && type.module != "*";
  return std::string(type.keyword) + (module ? " = " + std::string(type.module) : std::string());
}

}  // namespace

TextTips::TextTips(IniTextEdit& text, BlockOutline& outline, CatalogueService& names)
    : QObject(&text), text_(text), outline_(outline), names_(names) {
  text_.view().control().viewport()->installEventFilter(this);
}

bool TextTips::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QObject::eventFilter(watched, event);
  const auto* help = static_cast<const QHelpEvent*>(event);
  QToolTip::showText(help->globalPos(), textAt(help->pos()), text_.view().control().viewport());
  return true;
}

QString TextTips::textAt(const QPoint& point) const {
  const QString findings = text_.findingMarks().textAt(point);
  if (!findings.isEmpty()) return findings;
  const auto position = text_.view().send(Sci::SCI_POSITIONFROMPOINTCLOSE, point.x(), point.y());
  return position < 0 ? QString() : PlainToolTip(ShownText(FromBytes(tipAt(position))));
}

TextSpan TextTips::wordAt(qsizetype position) const {
  const auto line = text_.view().send(Sci::SCI_LINEFROMPOSITION, position);
  const auto start = text_.view().send(Sci::SCI_POSITIONFROMLINE, line);
  const std::string text = text_.utf8({start, text_.view().send(Sci::SCI_GETLINEENDPOSITION, line)});
  const auto isEnd = [](char byte) { return SeparatesWords(byte) || byte == ';'; };
  const auto at = text.begin() + (position - start);
  const auto before = std::find_if(std::make_reverse_iterator(at), text.rend(), isEnd).base();
  const auto behind = std::find_if(at, text.end(), isEnd);
  return {start + (before - text.begin()), start + (behind - text.begin())};
}

std::string TextTips::tipAt(qsizetype position) const {
  const TextSpan word = wordAt(position);
  if (word.from == word.to) return {};
  const auto line = static_cast<int>(text_.view().send(Sci::SCI_LINEFROMPOSITION, position));
  const TextBlock* block = outline_.blockAt(line);
  const bool ownHeader =
      block != nullptr && block->depth == 0 && static_cast<int>(block->firstLine) == line + 1;
  if (ownHeader && text_.utf8(word) == NameOf(*block)) return tipOfOwnName(*block);
  const std::string before = text_.utf8({std::max<qsizetype>(word.to - kLookBack, 0), word.to});
  const std::string bytes = LegibleBytesOfUtf8(FromLastHeader(before));
  const WritingPlace place = PlaceBehind(bytes);
  const auto path = outline_.pathAt(line);
  const std::string around = path.empty() ? std::string() : path.front()->keyword + ' ' + path.front()->words;
  if (place.part == WritingPlace::Part::firstWord) return tipOfKey(place, around);
  for (const TypedName& name : NamesAt(place)) {
    if (std::string tip = tipOfName(name); !tip.empty()) return tip;
  }
  return {};
}

std::string TextTips::tipOfKey(const WritingPlace& place, std::string_view around) const {
  const GameStructure& structure = GameStructure::get();
  const WordMeaning meaning = structure.meaning(place.block, place.typed);
  const std::string inside = place.block == kOutsideBlocks ? "" : " of " + BlockName(place.block);
  if (meaning.child != kNoBlockType) return std::string(place.typed) + ": a block" + inside;
  if (meaning.key == nullptr) return {};
  std::string tip = std::string(meaning.key->key) + ": a key" + inside;
  if (const std::string takes = WhatItTakes(*meaning.key); !takes.empty()) tip += '\n' + takes;
  const CataloguePtr& names = names_.catalogue();
  const auto example =
      names == nullptr ? std::nullopt : ExampleOf(*names, {place.block, place.typed, path_, around});
  if (example) tip += "\nExample: " + example->line + "\n  in " + example->header;
  return tip;
}

// The text itself knows better than its file.
std::string TextTips::tipOfName(const TypedName& name) const {
  const GameStructure& structure = GameStructure::get();
  for (const TextBlock& block : outline_.blocks()) {
    const KindId kind = structure.type(block.type).kind;
    const bool same = kind != kNoKind && structure.kinds()[kind].space == name.space;
    if (same && EqualFolded(NameOf(block), name.typed)) return tipOfOwnName(block);
  }
  return tipOfOther(name);
}

std::string TextTips::tipOfOwnName(const TextBlock& block) const {
  const auto begin = static_cast<qsizetype>(block.begin);
  const auto behind = std::min(static_cast<qsizetype>(block.behind), begin + kLookAhead);
  const std::string text = LegibleBytesOfUtf8(text_.utf8({begin, behind}));
  return block.keyword + ' ' + std::string(NameOf(block)) + "\nthis text, line " +
         std::to_string(block.firstLine) + Indented(FirstLines(text, kShownLines));
}

std::string TextTips::tipOfOther(const TypedName& name) const {
  if (names_.catalogue() == nullptr) return {};
  const auto found = names_.catalogue()->definitions(name.space, name.typed);
  if (!found.empty()) return Heading(found.front()) + Indented(FirstLinesOf(found.front(), kShownLines));
  const CataloguePtr withUnsaved = names_.withUnsaved();
  const auto unsaved = withUnsaved->definitions(name.space, name.typed);
  return unsaved.empty() ? std::string() : Heading(unsaved.front()) + ", not saved";
}

}  // namespace korvane
