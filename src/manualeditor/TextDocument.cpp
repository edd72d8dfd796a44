// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/TextDocument.h"

#include <Qsci/qsciscintilla.h>

#include "manualeditor/IniTextEdit.h"
#include "textview/ScintillaView.h"

namespace korvane {

namespace {

using Sci = QsciScintillaBase;

}  // namespace

TextDocument::~TextDocument() {
  control_.forget(*this);
  if (document_ != nullptr) control_.view().sendPointer(Sci::SCI_RELEASEDOCUMENT, document_);
}

void TextDocument::show() {
  control_.show(*this);
}

bool TextDocument::isShown() const {
  return control_.shows(*this);
}

std::string_view TextDocument::utf8() const {
  return isShown() ? control_.utf8() : utf8_;
}

bool TextDocument::isModified() const {
  return isShown() ? control_.isModified() : modified_;
}

void TextDocument::leave(const ScintillaView& view) {
  utf8_ = control_.utf8();
  modified_ = control_.isModified();
  anchor_ = view.send(Sci::SCI_GETANCHOR);
  cursor_ = view.send(Sci::SCI_GETCURRENTPOS);
  topLine_ = view.send(Sci::SCI_DOCLINEFROMVISIBLE, view.send(Sci::SCI_GETFIRSTVISIBLELINE));
  left_ = view.send(Sci::SCI_GETXOFFSET);
  width_ = view.send(Sci::SCI_GETSCROLLWIDTH);
  folded_.clear();
  for (auto line = view.send(Sci::SCI_CONTRACTEDFOLDNEXT, 0); line >= 0;
       line = view.send(Sci::SCI_CONTRACTEDFOLDNEXT, line + 1)) {
    folded_.push_back(line);
  }
}

// The first time the control makes it.
void TextDocument::takePlace(const ScintillaView& view) {
  view.sendPointer(Sci::SCI_SETDOCPOINTER, document_);
  if (document_ != nullptr) return;
  document_ = view.control().SendScintillaPtrResult(Sci::SCI_GETDOCPOINTER);
  view.sendPointer(Sci::SCI_ADDREFDOCUMENT, document_);
}

// What the control keeps for each view of a text, and not with the text, begins anew with every document.
void TextDocument::enter(const ScintillaView& view) const {
  for (const qsizetype line : folded_) view.send(Sci::SCI_FOLDLINE, line, Sci::SC_FOLDACTION_CONTRACT);
  view.send(Sci::SCI_SETSEL, anchor_, cursor_);
  view.send(Sci::SCI_SETFIRSTVISIBLELINE, view.send(Sci::SCI_VISIBLEFROMDOCLINE, topLine_));
  view.send(Sci::SCI_SETSCROLLWIDTH, width_);
  view.send(Sci::SCI_SETXOFFSET, left_);
}

}  // namespace korvane
