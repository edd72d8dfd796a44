// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>
#include <QWidget>

#include <string>
#include <string_view>

#include "manualeditor/FileText.h"

class QsciScintilla;

namespace korvane {

// The text control of the manual editor: plain text of the game's data files with line numbers, quiet colours
// and undo. Every byte of a file is one character of the text, and every line keeps its own end.
class IniTextEdit : public QWidget {
  Q_OBJECT

 public:
  enum class From { start, selectionEnd };

  explicit IniTextEdit(QWidget* parent = nullptr);

  // A new text (a file's bytes): unmodified, with nothing to undo, the cursor at its start.
  void setBytes(std::string_view bytes);
  // The file that holds the text, see FileOfUtf8.
  FileBytesOfText fileBytes() const;
  // The text as it can be kept whatever it holds, see KeepableOfUtf8.
  std::string keepableBytes() const;

  bool isModified() const;
  void setUnmodified();

  int lineCount() const;
  int cursorLine() const;  // from 0
  // The line of a byte offset in the UTF-8 text, and the number of characters before it in that line; from 0.
  struct Place {
    int line;
    int column;
  };
  Place placeOf(qsizetype position) const;
  void moveToStart();
  // At a byte offset in the UTF-8 text.
  void selectCharacterAt(qsizetype position);
  void selectAll();

  QString selectedText() const;
  // Puts the text, its line ends as CR LF, in the place of the selection, and the cursor behind it.
  void replaceSelection(const QString& text);

  // Selects the next occurrence. False, and the selection stays as it is, when there is none.
  bool find(const QString& text, From from, bool matchCase = false);
  // Replaces every occurrence, as one step to undo, and gives their number.
  int replaceAll(const QString& text, const QString& replacement, bool matchCase);
  // True when what is selected is an occurrence of the text.
  bool isSelected(const QString& text, bool matchCase) const;

  // The font of all of the text.
  const QFont& textFont() const { return font_; }
  void setTextFont(const QFont& font);

 Q_SIGNALS:
  // A key or mouse button was released, or the cursor moved.
  void cursorMayHaveMoved();
  void edited();

 protected:
  void changeEvent(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void prepare();
  void fitNumberMargin();
  void applyFont();
  void applyColours();
  void strikeOut();
  void colourTo(int position);
  long colourLines(long from, long to);
  void select(long from, long to);
  void replaceAllText(const QByteArray& utf8);
  // A message to the control underneath.
  long send(unsigned message, long first = 0, long second = 0) const;
  long sendText(unsigned message, long first, const char* second) const;
  std::string_view utf8() const;
  QsciScintilla* text_;
  QFont font_;
};

}  // namespace korvane
