// SPDX-License-Identifier: GPL-3.0-or-later
#include "textview/TextLook.h"

#include <Qsci/qsciscintilla.h>

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

#include "controls/ReadableColours.h"
#include "textview/LineColours.h"

namespace korvane {

namespace {

using Sci = QsciScintillaBase;

constexpr int kSizeFactor = Sci::SC_FONT_SIZE_MULTIPLIER;
constexpr int kColourStep = 1 << 18;   // bytes that are coloured in one go
constexpr int kCurrentLineShare = 18;  // of the highlight colour in the current line's background, in percent
constexpr int kMarginShare = 6;        // of the text colour in the background of the line numbers

struct KindColour {
  TextKind kind;
  QRgb onLight;
  QRgb onDark;
};
// Dark and light enough to be read on every ground that marks give to the text.
constexpr std::array kKindColours = {
    KindColour{TextKind::comment, 0xFF2F5D2F, 0xFFA9D1A9},
    KindColour{TextKind::header, 0xFF1F4E9C, 0xFFA5C8F7},
    KindColour{TextKind::end, 0xFF6E3A86, 0xFFD9B8E8},
    KindColour{TextKind::key, 0xFF1A5C6F, 0xFF97D3E4},
};

}  // namespace

TextLook::TextLook(const ScintillaView& view) : QObject(&view.control()), view_(view) {
  connect(&view_.control(), &Sci::SCN_STYLENEEDED, this, &TextLook::colourTo);
}

bool TextLook::isDark(const QPalette& palette) {
  return palette.color(QPalette::Active, QPalette::Base).lightness() <
         palette.color(QPalette::Active, QPalette::Text).lightness();
}

QColor TextLook::mixed(const QColor& a, const QColor& b, int percentOfA) {
  const auto part = [percentOfA](int x, int y) { return (x * percentOfA + y * (100 - percentOfA)) / 100; };
  return {part(a.red(), b.red()), part(a.green(), b.green()), part(a.blue(), b.blue())};
}

void TextLook::applyFont(const QFont& font) {
  const QByteArray family = font.family().toUtf8();
  constexpr auto kAll = Sci::STYLE_DEFAULT;
  view_.sendText(Sci::SCI_STYLESETFONT, kAll, family.constData());
  view_.send(Sci::SCI_STYLESETSIZEFRACTIONAL, kAll, qRound(font.pointSizeF() * kSizeFactor));
  view_.send(Sci::SCI_STYLESETWEIGHT, kAll, font.weight());
  view_.send(Sci::SCI_STYLESETITALIC, kAll, font.italic());
  view_.send(Sci::SCI_STYLESETUNDERLINE, kAll, font.underline());
}

void TextLook::apply(const QFont& font, const QPalette& palette) {
  applyFont(font);
  QsciScintilla& text = view_.control();
  // The window is disabled while it is set up, but not read then.
  const QColor paper = palette.color(QPalette::Active, QPalette::Base);
  const QColor ink = palette.color(QPalette::Active, QPalette::Text);
  const QColor highlight = palette.color(QPalette::Active, QPalette::Highlight);
  const auto setColour = [&text](unsigned message, int style, const QColor& colour) {
    text.SendScintilla(message, static_cast<unsigned long>(style), colour);
  };
  setColour(Sci::SCI_STYLESETFORE, Sci::STYLE_DEFAULT, ink);
  setColour(Sci::SCI_STYLESETBACK, Sci::STYLE_DEFAULT, paper);
  view_.send(Sci::SCI_STYLECLEARALL);
  for (const KindColour& colour : kKindColours) {
    setColour(Sci::SCI_STYLESETFORE, static_cast<int>(colour.kind),
              QColor(isDark(palette) ? colour.onDark : colour.onLight));
  }
  const QColor margin = mixed(ink, paper, kMarginShare);
  text.setMarginsForegroundColor(PaleText(ink, margin));
  text.setMarginsBackgroundColor(margin);
  text.setFoldMarginColors(margin, margin);
  view_.send(Sci::SCI_STYLESETUNDERLINE, Sci::STYLE_LINENUMBER, 0);
  text.setCaretForegroundColor(ink);
  text.setCaretLineBackgroundColor(mixed(highlight, paper, kCurrentLineShare));
  text.setSelectionBackgroundColor(highlight);
  text.setSelectionForegroundColor(palette.color(QPalette::Active, QPalette::HighlightedText));
}

// Asked for the text that is about to be shown, from where the colours end; an edit moves that place up.
void TextLook::colourTo(int position) {
  const qsizetype line = view_.send(Sci::SCI_LINEFROMPOSITION, view_.send(Sci::SCI_GETENDSTYLED));
  qsizetype from = view_.send(Sci::SCI_POSITIONFROMLINE, line);
  view_.send(Sci::SCI_STARTSTYLING, from);
  while (from < position) from = colourLines(from, std::min<qsizetype>(from + kColourStep, position));
}

// Colours from the start of a line to the end of the line that holds `to`, and gives where that is.
qsizetype TextLook::colourLines(qsizetype from, qsizetype to) {
  const qsizetype line = view_.send(Sci::SCI_LINEFROMPOSITION, to - 1);
  const bool isLast = line + 1 >= view_.send(Sci::SCI_GETLINECOUNT);
  const qsizetype end =
      isLast ? view_.send(Sci::SCI_GETLENGTH) : view_.send(Sci::SCI_POSITIONFROMLINE, line + 1);
  const auto size = static_cast<std::size_t>(end - from);
  std::string text(size + 1, '\0');
  std::string kinds(size, '\0');
  view_.control().SendScintilla(Sci::SCI_GETTEXTRANGE, static_cast<long>(from), static_cast<long>(end),
                                text.data());
  KindsOf(std::string_view(text).substr(0, size), kinds.data());
  view_.sendText(Sci::SCI_SETSTYLINGEX, end - from, kinds.data());
  return end;
}

}  // namespace korvane
