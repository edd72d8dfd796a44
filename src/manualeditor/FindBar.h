// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include "manualeditor/TextFinder.h"

class QAction;
class QComboBox;
class QLabel;
class QPushButton;
class QToolBar;
class QToolButton;

namespace korvane {

class IniTextEdit;
class SettingsStore;

// The find box with its history, the find button, what a search minds, and what came of it.
class FindBar : public QObject {
  Q_OBJECT

 public:
  // Adds the controls to the toolbar.
  FindBar(IniTextEdit& text, QToolBar& bar);

  void clear();
  // Empties the list; the text in the box stays.
  void forget();
  void load(const SettingsStore& settings);
  // Nothing happens between clear() and load(): the stored list is then the only one.
  void save(SettingsStore& settings) const;
  void removeDuplicates();

  // From the start of the text when the button shows "Find", from the selection when it shows "Find Next".
  void FindText();
  // From the selection, whatever the button shows.
  void findNext();
  void findPrevious();
  // The cursor into the box, its text selected: the selected word, when there is one in a single line.
  void focus();
  QString soughtText() const;

 Q_SIGNALS:
  // What a search that has found nothing has to say; an empty text takes it back.
  void said(const QString& sentence);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void addControls(QToolBar& bar);
  void addOptions();
  void setConfined(bool confined);
  void forgetHits();
  void lookAtOther();
  SearchOptions options() const;
  // `fromBox`: the search was begun there.
  void goOn(TextFinder::Direction direction, bool fromBox);
  void goToText(bool fromBox);
  void show(const QString& result, TextFinder::Outcome outcome);
  QString notFoundSentence() const;
  bool boxEvent(const QEvent& event);
  bool textEvent(const QEvent& event);

  IniTextEdit& text_;
  const QObject* control_;  // of the text; only compared, for the text may go first
  TextFinder finder_;
  QComboBox* CboFind_;
  QPushButton* BtnFind_;
  QToolButton* optionsButton_;
  QLabel* result_;
  QAction* matchCase_ = nullptr;
  QAction* wholeWord_ = nullptr;
  QAction* regularExpression_ = nullptr;
  QAction* inSelection_ = nullptr;
  QAction* wrapAround_ = nullptr;
  bool loaded_ = false;
  bool goingOn_ = false;  // Enter in the text finds on, until something else is done there
  bool notFound_ = false;
  TextSpan found_;   // what was selected when the last search was done
  QTimer released_;  // runs while a release of Enter may still be a repeat
};

}  // namespace korvane
