// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "mainwindow/FieldSources.h"

namespace korvane {

class ObjectDisplay;
class UnitFields;
struct Services;

// Takes the user from the main window's fields to their lines in the files, and what was typed with them.
class FileEdits {
 public:
  FileEdits(QWidget& window, UnitFields& fields, TypedMarks& typed, NoticeBar& notices,
            const ObjectDisplay& display, const SParse& parser, const Services& services,
            EditorLauncher& launcher);

  // The field with the keyboard, the selected row of the information list, or else the tree's object.
  void showInFile();
  // What was typed, as one unsaved change of its file. Values of two files are edited one file after the
  // other. Where nothing is typed the line is shown.
  void editInFile();
  // What was typed and is saved by now counts as read. False when something else is typed too.
  bool takeSavedAsRead();

 private:
  void edit(const std::vector<TypedValue>& values);
  void offerEach(const std::vector<std::vector<TypedValue>>& files);
  const QWidget* fieldOfRow() const;

  QWidget& window_;
  UnitFields& fields_;
  TypedMarks& typed_;
  NoticeBar& notices_;
  const ObjectDisplay& display_;
  const Services& services_;
  EditorLauncher& launcher_;
  FieldSources sources_;
};

}  // namespace korvane
