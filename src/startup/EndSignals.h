// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace korvane {

// The signals with which a system, a session or a terminal ends a program, as events: SIGTERM, SIGHUP and
// SIGINT where there are any. Until it is answered, a second one of the same kind ends the program at once.
class EndSignals : public QObject {
  Q_OBJECT

 public:
  EndSignals();
  ~EndSignals() override;

  // Ends the process by the signal, as if it had never been caught.
  static void endBy(int signal);

 Q_SIGNALS:
  void asked(int signal);

 private:
  void take();
};

}  // namespace korvane
