// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPoint>
#include <QPointer>
#include <QWindow>

#include <functional>

#include "monkey/Chance.h"

class QWidget;

namespace korvane {

// The windows on the screen, menus and drop-downs included.
QList<QWindow*> WindowsShown();
// The widget behind such a window.
QWidget* WidgetOf(const QWindow& window);

// Does to the windows on the screen what a user can do, as the desktop would report it, without a plan.
class Hands {
 public:
  // `around` runs every single event; it may leave one out.
  using Around = std::function<void(const char* what, const std::function<void()>& event)>;
  Hands(Chance& chance, Around around) : chance_(chance), around_(std::move(around)) {}

  // One thing that chance chooses.
  void act();
  // Goes one step on in the folder tree on the way to the folder (native path with slashes).
  void reachFolder(const QString& folder);

 private:
  struct Action {
    const char* what;
    int weight;
    void (Hands::*act)();
  };
  static const Action kActions[];

  void click();
  void doubleClick();
  void rightClick();
  void drag();
  void turnWheel();
  void type();
  void write();
  void pressKey();
  void pressShortcut();
  void pressCommandKey();
  void runCommand();
  void goOn();
  void clickButton();
  void openFile();
  void useTabs();
  void dropFiles();
  void save();
  void openWindow();
  void clickObject();
  void clickEntry();
  void followLink();
  void typeValue();
  void closeWindow();
  void resizeWindow();
  void moveWindow();
  void changeState();
  void changePalette();
  void changeFont();
  void fillClipboard();

  void press(Qt::MouseButton button, QWindow& window, QPoint at);
  void key(int code, Qt::KeyboardModifiers modifiers, const QString& text);
  void choose(const char* windowName, const QString& command);
  QWidget* reachable(const char* windowName);
  void clickOn(QWidget& widget, QPoint at);
  void event(const std::function<void()>& event) { around_(doing_, event); }

  static void leaveSaveDialogs();
  QWindow* someWindow();
  QPoint somePlace(const QWindow& window);

  Chance& chance_;
  Around around_;
  const char* doing_ = "";
};

}  // namespace korvane
