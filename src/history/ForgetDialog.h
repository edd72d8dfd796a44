// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <vector>

#include "platform/KeptVersions.h"

class QCheckBox;
class QDateEdit;
class QLabel;
class QPushButton;

namespace korvane {

// Asks which kept versions are to be forgotten, and says how many these are and how much space they take.
class ForgetDialog : public QDialog {
  Q_OBJECT

 public:
  ForgetDialog(const KeptVersions& versions, QWidget* parent);

  // What was said when it was accepted.
  const std::vector<KeptVersion>& chosen() const { return chosen_; }

 private:
  void count();

  const KeptVersions& versions_;
  QDateEdit* date_;
  QCheckBox* unsaved_;
  QLabel* counted_;
  QPushButton* forget_ = nullptr;
  std::vector<KeptVersion> chosen_;
};

}  // namespace korvane
