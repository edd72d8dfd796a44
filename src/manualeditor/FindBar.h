// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

class QComboBox;
class QPushButton;
class QToolBar;

namespace korvane {

class IniTextEdit;
class SettingsStore;

// The find box with its history, and the find button.
class FindBar : public QObject {
  Q_OBJECT

 public:
  // Adds the box and the button to the toolbar.
  FindBar(IniTextEdit& text, QToolBar& bar);

  void clear();
  void load(const SettingsStore& settings);
  // Nothing happens between clear() and load(): the stored list is then the only one.
  void save(SettingsStore& settings) const;
  void removeDuplicates();

  // From the start of the text when the button shows "Find", from the selection when it shows "Find Next".
  void FindText();
  // From the selection, whatever the button shows.
  void findNext();
  // The cursor into the box, its text selected.
  void focus();
  QString soughtText() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  IniTextEdit& text_;
  QComboBox* CboFind_;
  QPushButton* BtnFind_;
  bool loaded_ = false;
  QTimer released_;  // runs while a release of Enter may still be a repeat
};

}  // namespace korvane
