// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <QStringList>

#include <vector>

#include "about/HelpFile.h"
#include "about/HelpSearch.h"

class QAction;
class QLineEdit;
class QListWidget;
class QStackedWidget;
class QTextBrowser;
class QToolBar;
class QTreeWidget;
class QTreeWidgetItem;
class QUrl;

namespace korvane {

// The window of the help: contents or search results at the side, the page beside them.
class FrmHelp : public QMainWindow {
  Q_OBJECT

 public:
  // `path`: the program's path of the help file. If it is not a help file, the window says so.
  explicit FrmHelp(const QString& path, QWidget* parent = nullptr);

  void showContents();
  // A topic number that the file does not have shows the contents.
  void showTopic(int topic);

 Q_SIGNALS:
  void webLinkOpened(const QString& address);

 protected:
  void changeEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Place {
    QString page;
    int scroll = 0;
  };

  void buildToolBar();
  QAction* addCommand(QToolBar& bar, const char* icon, const QString& text, const QList<QKeySequence>& keys,
                      void (FrmHelp::*command)());
  QWidget* sidePart();
  void connectSidePart();
  void buildText();
  void fillContents();
  QTreeWidgetItem* headingItem(const QString& heading);

  void goTo(const QString& page);
  void goInHistory(int step);
  void goBack() { goInHistory(-1); }
  void goForward() { goInHistory(1); }
  void zoomIn() { zoomTo(zoom_ + 1); }
  void zoomOut() { zoomTo(zoom_ - 1); }
  void resetZoom() { zoomTo(0); }
  void zoomTo(int step);
  void startSearch();

  void showPlace();
  void showProblem();
  void rememberScroll();
  void markInContents(const QString& page);
  void markWords();
  void followLink(const QUrl& link);
  void search(const QString& text);
  void openHit(int row);

  HelpFile file_;
  HelpSearch search_;
  std::vector<Place> history_;
  int place_ = -1;  // index into the history
  int zoom_ = 0;    // steps from the normal size
  QStringList words_;
  QAction* back_ = nullptr;
  QAction* forward_ = nullptr;
  QLineEdit* searchField_ = nullptr;
  QStackedWidget* side_ = nullptr;
  QTreeWidget* contents_ = nullptr;
  QListWidget* hits_ = nullptr;
  QTextBrowser* text_ = nullptr;
};

}  // namespace korvane
