// SPDX-License-Identifier: GPL-3.0-or-later
#include "faults/WizardRun.h"

#include <QPushButton>
#include <QTreeWidget>

#include "app/Services.h"
#include "platform/FileWriter.h"
#include "settings/SettingsStore.h"
#include "setup/FolderChooser.h"
#include "setup/frmWizard.h"
#include "support/Fakes.h"

namespace korvane {

namespace {

enum Nav { next = 3, finish = 4 };

// Timers would look at the disk whenever it pleases them, and no two runs would make the same calls.
class NoEvents : public EventYield {
 protected:
  void runEvents() override {}
};

void Press(const frmWizard& wizard, Nav button) {
  wizard.findChild<QPushButton*>(QString("cmdNav%1").arg(button))->click();
}

// The rows of step 2's list that tell of something that is not there.
QString Failures(const frmWizard& wizard) {
  QString failures;
  const auto* list = wizard.findChild<QTreeWidget*>("LstRestored");
  for (int i = 0; i < list->topLevelItemCount(); ++i) {
    const QTreeWidgetItem& row = *list->topLevelItem(i);
    const bool failed = row.text(0) == "Archives" || row.text(1).startsWith("not written");
    if (failed) failures += row.text(0) + ": " + row.text(1) + '\n';
  }
  return failures;
}

}  // namespace

QString RunWizard(const QString& game, const QString& folder) {
  SettingsStore settings(folder + "/settings");
  FakeMessageBoxes messages;
  FakeShell shell;
  FakeHelpViewer help;
  FakeProcessEnd process;
  NoEvents yield;
  const Folders folders{{}, folder};
  const Services services{settings, messages, shell, help, process, yield, folders};
  FolderChooser chooser;
  chooser.SelectedFolder = game;
  const FileWriter writer;
  frmWizard wizard(services, chooser, writer);
  wizard.show();
  Press(wizard, next);
  Press(wizard, next);
  QString told = Failures(wizard);
  Press(wizard, next);
  Press(wizard, finish);
  for (const Message& message : messages.shown) told += message.text;
  return told + settings.trouble();
}

}  // namespace korvane
