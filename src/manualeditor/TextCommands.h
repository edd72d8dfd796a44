// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <functional>
#include <string>
#include <string_view>

namespace korvane {

class IniTextEdit;

// The commands that work on the text alone.
class TextCommands : public QObject {
  Q_OBJECT

 public:
  explicit TextCommands(IniTextEdit& text);

  void cut();
  void copy();
  void paste();
  void deleteSelection();
  void selectAll();

  void toggleComment();
  void duplicate();
  void moveUp();
  void moveDown();
  void indent();
  void outdent();
  void trim();
  void align();

  void toggleMark();
  void nextMark();
  void previousMark();

  void zoomIn();
  void zoomOut();
  void zoomNormal();
  void showBlanks();
  void wrap();

 private:
  void send(unsigned message);
  void editLines(const std::function<std::string(std::string_view)>& edit);
  std::string_view indentHere() const;
  std::size_t tabWidth() const;
  void goToMark(int line);

  IniTextEdit& text_;
};

}  // namespace korvane
