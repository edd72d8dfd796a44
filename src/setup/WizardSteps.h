// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QWidget>

#include <array>

class QGroupBox;
class QLabel;
class QProgressBar;
class QVBoxLayout;

namespace korvane {

class RestoreReport;

// The four steps of the wizard, each a frame as large as this area. The frame of the step that is shown
// stands at the left edge, the others lie far outside.
class WizardSteps : public QWidget {
 public:
  static constexpr int kCount = 4;

  explicit WizardSteps(QWidget* parent);

  QWidget* PicBrouse = nullptr;  // the host of the folder tree
  QProgressBar* ProgressBar1 = nullptr;
  QLabel* Label1 = nullptr;  // how far the restoring of files has come
  RestoreReport* Report = nullptr;

  void turn(int from, int to);
  // The string id of the step's frame.
  int titleId(int step) const;

  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override;
  QSize minimumSizeHint() const override;
  QSize sizeHint() const override { return minimumSizeHint(); }

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  QVBoxLayout* makeFrame(int step);
  void fillFolderStep(QVBoxLayout& layout);
  void fillRestoreStep(QVBoxLayout& layout);
  void moveAside(QWidget& frame) const;

  std::array<QGroupBox*, kCount> fraStep_{};
};

}  // namespace korvane
