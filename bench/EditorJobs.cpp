// SPDX-License-Identifier: GPL-3.0-or-later
#include <QListView>
#include <QTest>

#include <array>
#include <memory>

#include "BarePass.h"
#include "ProgramJobs.h"
#include "Windows.h"
#include "startup/Program.h"

namespace korvane {

namespace {

struct Editor {
  const char* name;
  const char* window;
  void (Program::*show)();
  std::array<const char*, 2> files;  // the one with its entries, and what else it reads while it loads
  double clickTime;                  // promised
};

constexpr std::array kEditors = {
    Editor{"weapon editor", "FrmWE", &Program::showWeaponEditor, {"Weapon.ini", nullptr}, 0},
    Editor{"armour editor", "FrmArmour", &Program::showArmourEditor, {"Armor.ini", nullptr}, 0},
    Editor{"command set editor",
           "FrmCmdSet",
           &Program::showCommandSetEditor,
           {"CommandSet.ini", "CommandButton.ini"},
           50},
    Editor{"command button editor",
           "FrmCmdBtn",
           &Program::showCommandButtonEditor,
           {"CommandButton.ini", nullptr},
           0},
};

constexpr double kRatio = 4;
constexpr double kAllowance = 20;  // milliseconds
constexpr int kSteps = 30;         // down the list, in one run
constexpr double kStepTime = 33;   // of the key repeat
constexpr int kStride = 37;        // between the entries that are clicked

Paths LoadedFiles(const Editor& editor, const BenchFolders& folders) {
  Paths files;
  for (const char* name : editor.files) {
    if (name != nullptr) files.push_back(folders.ini(name));
  }
  return files;
}

QListView& ListOf(const Editor& editor) {
  return Child<QListView>(editor.window, "LstWPN");
}

void Show(const Editor& editor, Program& program) {
  (program.*editor.show)();
  Settle();
}

Job LoadJob(const Editor& editor, const RunningProgram& running) {
  return {.name = std::string(editor.name) + ", load",
          .promise = {.ratio = kRatio, .plus = kAllowance},
          .run = [&editor, &program = running.program] { Show(editor, program); },
          .bare = BareRead(LoadedFiles(editor, running.folders)),
          .prepare = [&editor] { CloseWindow(editor.window); }};
}

Job ItemJob(const Editor& editor, const RunningProgram& running) {
  const auto next = std::make_shared<int>(0);
  const auto entry = [&editor, next] {
    const QAbstractItemModel& model = *ListOf(editor).model();
    return model.index(*next % model.rowCount(), 0);
  };
  return {.name = std::string(editor.name) + ", click",
          .promise = {.ratio = kRatio, .plus = kAllowance, .time = editor.clickTime},
          .run =
              [=, &editor] {
                ReleaseOn(ListOf(editor), entry());
                Settle();
              },
          .bare = BareRead({running.folders.ini(editor.files[0])}),
          .prepare =
              [=, &editor, &program = running.program] {
                Show(editor, program);
                *next += kStride;
                PressOn(ListOf(editor), entry());
              }};
}

Job DownJob(const Editor& editor, const RunningProgram& running) {
  return {.name = "one step down the weapons",
          .promise = {.time = kStepTime},
          .run =
              [&editor] {
                for (int i = 0; i < kSteps; ++i) {
                  QTest::keyClick(&ListOf(editor), Qt::Key_Down);
                  Settle();
                }
              },
          .bare = [read = BareRead({running.folders.ini(editor.files[0])})] { read(); },
          .prepare =
              [&editor, &program = running.program] {
                Show(editor, program);
                ListOf(editor).setCurrentIndex(ListOf(editor).model()->index(0, 0));
                ListOf(editor).setFocus();
              },
          .steps = kSteps};
}

}  // namespace

Jobs EditorJobs(const RunningProgram& running) {
  Jobs jobs;
  for (const Editor& editor : kEditors) {
    jobs.push_back(LoadJob(editor, running));
    jobs.push_back(ItemJob(editor, running));
  }
  jobs.push_back(DownJob(kEditors[0], running));
  return jobs;
}

}  // namespace korvane
