// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>
#include <QTimer>

#include "manualeditor/TextSearch.h"

class QCheckBox;
class QGridLayout;
class QLabel;
class QLineEdit;

namespace korvane {

class IniTextEdit;

// Finds and replaces in the text of the manual editor; modeless, and belongs to its window.
class FrmReplace : public QDialog {
  Q_OBJECT

 public:
  FrmReplace(IniTextEdit& text, QWidget* owner);

  // Shows the window with a text to find, ready to be typed over.
  void showWith(const QString& sought);

 private:
  void buildFields(QGridLayout& layout);
  void buildButtons(QGridLayout& layout);
  TextSearch search() const;
  // What "Replace All" replaces in: what the find bar confines searches to, else all of the text.
  TextSpan range() const;
  void countSoon();
  void count();
  void findNext();
  void replace();
  void replaceAll();

  IniTextEdit& text_;
  QLineEdit* TxtFind_;
  QLineEdit* TxtReplace_;
  QCheckBox* ChkMatchCase_;
  QCheckBox* wholeWord_;
  QCheckBox* regularExpression_;
  QLabel* LblResult_;
  QTimer count_;
};

}  // namespace korvane
