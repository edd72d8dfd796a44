// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include <optional>
#include <vector>

#include "manualeditor/TextSearch.h"

namespace korvane {

class IniTextEdit;

// Goes from hit to hit in the text, marks them all and says which of how many is selected.
class TextFinder : public QObject {
  Q_OBJECT

 public:
  enum class Direction { next, previous };
  // What is said of a search; `neither`: nothing was sought, or nothing could be.
  enum class Outcome { found, notFound, neither };

  explicit TextFinder(IniTextEdit& text);

  // Confines every search to the selection of this moment; it grows and shrinks with later edits. False, and
  // nothing is confined, when nothing is selected.
  bool confine();
  void unconfine();

  // Selects a hit: the first of the text, or the next one before or behind the selection. Nothing changes
  // when there is none. `wrap`: from the other end on when there is none up to this end.
  bool findFirst(const QString& sought, const SearchOptions& options);
  bool find(const QString& sought, const SearchOptions& options, Direction direction, bool wrap);
  // Takes the marks away.
  void forget();
  // The hits in another text are marked; that it has none is not told.
  void lookAtOther();

 Q_SIGNALS:
  // "3 of 17", "last of 17", "Not found" or what is wrong with the expression; empty after forget().
  void told(const QString& text, TextFinder::Outcome outcome);

 private:
  TextSpan range() const;
  bool take(const TextSearch& search, const std::optional<TextSpan>& hit, const QString& whenNone);
  void count();
  void tellOfLargeText();
  QString place(const std::vector<TextSpan>& hits) const;

  IniTextEdit& text_;
  std::optional<TextSearch> shown_;              // whose hits are marked
  bool found_ = false;                           // the last search was
  bool asked_ = false;                           // no edit since, nor another text
  QString atEnd_;                                // "last" or "first" when there was nothing to go on to
  std::optional<std::vector<TextSpan>> marked_;  // nothing where an edit may have moved them
  QTimer recount_;
};

}  // namespace korvane
