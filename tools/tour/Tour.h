// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QModelIndex>
#include <QString>

#include <functional>

class QPixmap;
class QTreeView;
class QWidget;

namespace korvane {

class Program;

// Goes through the whole program by itself, as a user would, and leaves a picture of every stop.
class Tour {
 public:
  // `gameFolder`: the program's path of the game folder that the wizard chooses; `folder`: where the pictures
  // go (native path).
  Tour(Program& program, QString gameFolder, QString folder)
      : program_(program), gameFolder_(std::move(gameFolder)), folder_(std::move(folder)) {}

  // False when a stop could not be reached or a picture could not be written.
  bool run();

 private:
  void start();
  void objects();
  void tabs();
  void search();
  void manualEditor();
  void proposals(QWidget& editor);
  void problems();
  QString original() const;
  void history();
  void comparison();
  void editInFile();
  void tableEditors();
  void options();
  void aboutAndHelp();
  void messages();
  void wizard();

  void showObject(const QString& group, const QString& picture);
  void editor(const char* action, const char* window, const QString& picture);

  QTreeView& objectTree();
  // The visible window of this name; null, and the tour has failed, when there is none.
  QWidget* window(const QString& name);
  void trigger(const QString& windowName, const QString& action);
  void picture(QWidget* shown, const QString& name);
  void save(const QPixmap& picture, const QString& name);
  // Waits for the message box that `action` brings up, takes its picture and answers it.
  void message(const std::function<void()>& action, const QString& name);
  void fail(const QString& reason);

  Program& program_;
  QString gameFolder_;
  QString folder_;
  bool complete_ = true;
};

}  // namespace korvane
