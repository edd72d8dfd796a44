// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTimer>
#include <QWidget>

class QProgressBar;

namespace korvane {

// The progress of collecting an object's data. While it exists its main window is disabled. It comes up, like
// any progress window, only when the work has lasted a moment, and never takes the focus.
class FrmColData : public QWidget {
  Q_OBJECT

 public:
  explicit FrmColData(QWidget& mainWindow);
  ~FrmColData() override;

  // Raises the bar, from 1 to its maximum of 25.
  void setStage(int value);

 Q_SIGNALS:
  // The work lasts long enough to be shown.
  void cameUp();

 private:
  void comeUp();

  QWidget& mainWindow_;
  QProgressBar* PB1_;
  QTimer patience_;
};

}  // namespace korvane
