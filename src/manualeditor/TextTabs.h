// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTabBar>

#include <functional>
#include <vector>

#include "catalogue/Catalogue.h"
#include "manualeditor/OpenText.h"

namespace korvane {

// The texts that are open in the manual editor, at least one, and the row of their tabs, which is seen from
// the second one on. What keeps texts from being lost asks each of them. It must go before the control does.
class TextTabs : public QTabBar {
  Q_OBJECT

 public:
  // `make` makes an open text with nothing in it, owned by the tabs.
  using Make = std::function<OpenText*(QObject* owner)>;
  TextTabs(IniTextEdit& text, Make make);

  // The shown one.
  OpenText& current() const;
  // The one with the whole of the file, which can be changed; nullptr when there is none.
  OpenText* whole(const QString& file) const;
  // Of the whole file.
  bool hasUnsaved(const QString& file) const;
  bool hasUnsaved() const;  // of any, parts included
  // See OpenText::unsavedNames; of all but the file with this path below the game folder.
  Catalogue::Files unsavedNames(const QString& besides) const;
  // The sentences of all that cannot be noted for the case of a crash, each once.
  QStringList saidOfDrafts() const;

  enum class Opened { failed, loaded, broughtForward };
  // Into the tab of the same file or part, where there is one without unsaved text; one that has such is only
  // brought forward. Else into a tab of its own.
  Opened open(const ManualEditRequest& request);
  void bringForward(const OpenText& text);
  void showNext();
  void showPrevious();

  // See OpenText::letGo; false as soon as one is to stay, which is then shown.
  bool letGo();
  void keepAtEnd();
  void lookAgain();

  void closeCurrent();
  // A single tab with nothing in it: for a window that was closed and is used again.
  void startAnew();

  // Looks at what the tabs say.
  void refresh();

 Q_SIGNALS:
  // Another text is shown, but for one that is being opened.
  void otherShown();
  // See OpenText, which is said of any of the texts.
  void toldOf(OpenText::Notice notice);
  void loadedAnew();
  // The last tab is to be closed, and the window with it.
  void lastClosed();

 protected:
  void mouseReleaseEvent(QMouseEvent* event) override;

 private:
  OpenText* make();
  OpenText* tabFor(const ManualEditRequest& request) const;
  OpenText* at(int index) const;
  int indexOf(const OpenText& text) const;
  void add(OpenText& text);
  void remove(OpenText& text);
  void close(int index);
  void showAt(int index);
  void followShown();
  QString captionOf(const OpenText& text) const;

  IniTextEdit& text_;
  Make make_;
  std::vector<OpenText*> texts_;  // in the order of the tabs
  OpenText* current_;
  bool opening_ = false;
};

}  // namespace korvane
