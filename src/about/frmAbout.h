// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

namespace korvane {

class MessageBoxes;
class Programs;
class Registry;
class SettingsStore;

// The about box: title, version and what the program is for.
class frmAbout : public QDialog {
  Q_OBJECT

 public:
  frmAbout(SettingsStore& store, MessageBoxes& messages, const Registry& registry, Programs& programs,
           QWidget* parent = nullptr);

  // Starts the system information program, or says that there is none.
  void StartSysInfo();

  void reject() override { close(); }

 Q_SIGNALS:
  void extrasRequested();  // show FrmFun
  void closedForGood();

 protected:
  void closeEvent(QCloseEvent* event) override;

 private:
  QWidget* textPart();
  QWidget* buttonPart();
  void addHiddenMenu();

  SettingsStore& store_;
  MessageBoxes& messages_;
  const Registry& registry_;
  Programs& programs_;
};

}  // namespace korvane
