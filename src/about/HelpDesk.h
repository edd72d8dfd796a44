// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include "about/FrmHelp.h"
#include "platform/HelpViewer.h"

namespace korvane {

// Opens the help on request, in one window that reads the help file anew each time it is opened. The window
// has no owner, so that it stays usable beside a message box that waits for an answer.
class HelpDesk : public QObject, public HelpViewer {
  Q_OBJECT

 public:
  // `helpFile`: the program's path of the help file.
  explicit HelpDesk(QString helpFile) : helpFile_(std::move(helpFile)) {}
  ~HelpDesk() override { delete window_; }

  void showContents() override;
  void showTopic(int topic) override;

 Q_SIGNALS:
  // A link to the web was followed: open the address in the browser.
  void webLinkOpened(const QString& address);

 private:
  FrmHelp& window();

  QString helpFile_;
  QPointer<FrmHelp> window_;
};

}  // namespace korvane
