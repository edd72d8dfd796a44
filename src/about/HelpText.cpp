// SPDX-License-Identifier: GPL-3.0-or-later
#include "about/HelpText.h"

#include <QPalette>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

#include <vector>

#include "controls/ReadableColours.h"

namespace korvane {

namespace {

constexpr qreal kDocumentMargin = 16;  // lengths in pixels
constexpr qreal kHeadingMargin = 18;
constexpr qreal kTableMargin = 8;
constexpr qreal kCellPadding = 5;
constexpr float kLineOpacity = 0.35F;

// Lines that are seen on light and on dark.
QBrush LineBrush(const QPalette& palette) {
  QColor colour = palette.color(QPalette::Text);
  colour.setAlphaF(kLineOpacity);
  return colour;
}

void GiveRoom(QTextTable& table, const QPalette& palette) {
  QTextTableFormat format = table.format();
  format.setBorderCollapse(true);
  format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
  format.setBorderBrush(LineBrush(palette));
  format.setBorder(1);
  format.setCellPadding(kCellPadding);
  format.setTopMargin(kTableMargin);
  format.setBottomMargin(kTableMargin);
  table.setFormat(format);
}

void GiveRoomToHeading(const QTextBlock& heading) {
  QTextBlockFormat format = heading.blockFormat();
  format.setTopMargin(kHeadingMargin);
  QTextCursor(heading).setBlockFormat(format);
}

// Qt gives links the palette's colour, which may be one for a light background only.
void ColourLinks(QTextDocument& document, const QColor& colour) {
  std::vector<QTextCursor> links;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    for (auto at = block.begin(); !at.atEnd(); ++at) {
      const QTextFragment piece = at.fragment();
      if (!piece.charFormat().isAnchor()) continue;
      QTextCursor& link = links.emplace_back(&document);
      link.setPosition(piece.position());
      link.setPosition(piece.position() + piece.length(), QTextCursor::KeepAnchor);
    }
  }
  QTextCharFormat format;
  format.setForeground(colour);
  for (QTextCursor& link : links) link.mergeCharFormat(format);
}

}  // namespace

void SetHelpText(QTextDocument& document, const QString& markdown, const QPalette& palette) {
  document.setMarkdown(markdown);
  document.setDocumentMargin(kDocumentMargin);
  for (QTextFrame* frame : document.rootFrame()->childFrames()) {
    if (auto* table = qobject_cast<QTextTable*>(frame)) GiveRoom(*table, palette);
  }
  for (QTextBlock block = document.begin().next(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() > 0) GiveRoomToHeading(block);
  }
  ColourLinks(document, ReadableLink(palette, palette.color(QPalette::Base)));
}

}  // namespace korvane
