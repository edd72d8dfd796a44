// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QRect>
#include <QWidget>

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "app/TextEdit.h"
#include "manualeditor/TextSearch.h"
#include "platform/FileText.h"
#include "textview/ScintillaView.h"

class QContextMenuEvent;
class QMenu;
class QsciScintilla;

namespace korvane {

class FindingMarks;
class LineMarks;
class ScrollMarks;
class TextDocument;
class TextLook;

enum class TextMark {
  hit,    // of a search
  match,  // the header and the End of the block at the cursor
  scope,  // what a search is confined to
};

// The text control of the manual editor: plain text of the game's data files with line numbers, quiet colours
// and undo. Every byte of a file is one character of the text, and every line keeps its own end.
class IniTextEdit : public QWidget {
  Q_OBJECT

 public:
  explicit IniTextEdit(QWidget* parent = nullptr);

  // Shows another document, which is in the control from then on. The one before keeps all that is its own.
  void show(TextDocument& document);
  bool shows(const TextDocument& document) const { return shown_ == &document; }

  // A new text (a file's bytes): unmodified, with nothing to undo, the cursor at its start.
  void setBytes(std::string_view bytes);
  // The same for a text in UTF-8.
  void setUtf8(const QByteArray& utf8);
  // The same for another version of the text that is shown: the cursor and the view stay.
  void setBytesAgain(std::string_view bytes);
  // The file that holds the text, see FileOfUtf8.
  FileBytesOfText fileBytes() const;
  // See LegibleBytesOfUtf8.
  std::string legibleBytes() const;

  void setReadOnly(bool readOnly);
  bool isModified() const;
  void setUnmodified();

  int lineCount() const;
  int cursorLine() const;  // from 0
  qsizetype cursor() const;
  // The line of a byte offset in the UTF-8 text, and the number of characters before it in that line; from 0.
  struct Place {
    int line;
    int column;
  };
  Place placeOf(qsizetype position) const;
  void moveToStart();
  // Selects `length` characters from the column of the line, both from 0; stops at the line's end, and at the
  // text's.
  void goTo(int line, int column, int length);
  // Scrolls so that the line (from 0), which stands above the cursor, is seen too, where the control is high
  // enough for both.
  void keepInSight(int line);
  // At a byte offset in the UTF-8 text.
  void selectCharacterAt(qsizetype position);
  void selectAll();

  // The name at the cursor, or the selected text of a single line.
  QString wordAtCursor() const;
  QString selectedText() const;
  // Puts the text, its line ends as CR LF, in the place of the selection, and the cursor behind it.
  void replaceSelection(const QString& text);

  // The text itself, until its next change.
  std::string_view utf8() const;
  // A copy of a part, which costs no more than the part.
  std::string utf8(TextSpan span) const;
  // Where the screen has the position: a line high, without a width.
  QRect placeOnScreen(qsizetype position) const;
  TextSpan selection() const;
  // Brings the span into view with some lines around it.
  void select(TextSpan span);
  // Marks these spans in the text and at its scroll bar, in the place of those of the same kind before.
  void setMarks(TextMark mark, const std::vector<TextSpan>& spans);
  // The first span of a kind, as edits have moved it.
  std::optional<TextSpan> markedSpan(TextMark mark) const;
  // The lines that the selection touches, without the last one's line end.
  TextSpan selectedLines() const;
  // Another text in the place of a span, selected, as one step to undo.
  void replaceSpan(TextSpan span, std::string_view utf8);
  // Another text in the place of all of it, as one step to undo, the view as little moved as can be.
  void replaceAllText(const QByteArray& utf8);

  // The same, with only the lines touched that differ, and the first of them gone to.
  void rewrite(std::string_view utf8);

  // Changes, in their order, as one step to undo.
  void apply(std::span<const TextEdit> edits);

  // The control takes the keys of its own commands before any menu gets them.
  void freeKey(const QKeySequence& key);

  ScintillaView view() const { return view_; }
  LineMarks& lineMarks() const { return *lineMarks_; }
  FindingMarks& findingMarks() const { return *findingMarks_; }

  // The font of all of the text.
  const QFont& textFont() const { return font_; }
  void setTextFont(const QFont& font);

 Q_SIGNALS:
  // A key or mouse button was released, or the cursor moved.
  void cursorMayHaveMoved();
  void edited();
  // The control's own context menu is about to be shown; the cursor is where it was asked for.
  void menuAsked(QMenu& menu);
  // See isModified().
  void modificationChanged();
  // Another document is.
  void documentShown();

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  friend class TextDocument;
  void forget(const TextDocument& document);
  void prepare();
  void prepareDocument();
  void announceEdits(std::size_t size);
  void showMenu(const QContextMenuEvent& event);
  void moveToMenu(const QPoint& at);
  void fitNumberMargin();
  TextSpan spanOf(int line, int column, int length) const;
  void applyFont();
  void applyColours();
  void applyFoldColours();
  void strikeOut();
  void showAtScrollBar(TextMark mark, const std::vector<TextSpan>& spans);
  qsizetype send(unsigned message, qsizetype first = 0, qsizetype second = 0) const;
  qsizetype sendText(unsigned message, qsizetype first, const char* second) const;

  QsciScintilla* text_;
  ScintillaView view_;
  TextLook* look_;
  ScrollMarks* scrollMarks_;
  LineMarks* lineMarks_;
  FindingMarks* findingMarks_;
  TextDocument* shown_ = nullptr;  // none: a text that is in no document of ours
  QFont font_;
};

}  // namespace korvane
