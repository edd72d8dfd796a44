// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include "manualeditor/TextCheck.h"

namespace korvane {

class CatalogueService;
class IniTextEdit;

// What the checker says of a text while it is typed: marks in the text, and the commands that go from one to
// the next and mend them.
class LiveFindings : public QObject {
  Q_OBJECT

 public:
  LiveFindings(IniTextEdit& text, CatalogueService& names);

  // Whose whole text is in the control from now on: a path below the game folder. Other texts than the data
  // files are not checked; nor is any for an empty path.
  void setFile(const QString& path);
  // The same for a text that has been in the control before, with its findings.
  void goOnWith(const QString& path);
  // Looks whether other files have changed since.
  void lookAgain();

  void goToNext();
  void goToPrevious();
  void applySuggestion();

 Q_SIGNALS:
  // What is marked is what the checker says of the text as it is.
  void marked();

 private:
  void take(const QString& path);
  void checkSoon();
  void check();
  void namesChanged();
  void show(const std::vector<TextFinding>& findings);
  void goTo(const TextFinding* finding);

  IniTextEdit& text_;
  CatalogueService& names_;
  TextCheck check_;
  CataloguePtr checked_;
  QString path_;
  QTimer soon_;
};

}  // namespace korvane
