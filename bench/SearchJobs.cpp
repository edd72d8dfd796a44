// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractItemModel>
#include <QCheckBox>
#include <QCoreApplication>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeView>

#include <memory>

#include "BarePass.h"
#include "ProgramJobs.h"
#include "Windows.h"
#include "app/CatalogueService.h"
#include "problems/DataCheck.h"

namespace korvane {

namespace {

constexpr double kFrame = 16;  // ms

const QString kMain = QStringLiteral("FrmEdit");
const QString kUses = QStringLiteral("UsesWindow");
constexpr const char* kSought = "ModuleTag_03";  // in every object

// The event loop as the program has it, busy enough to show where it is held up.
void RunLoopUntil(const std::function<bool()>& done) {
  QTimer tick;
  tick.start(1);
  while (!done()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
}

struct Workers {
  explicit Workers(const Folders& folders) : names(folders), check(names) {}
  CatalogueService names;
  DataCheck check;
};

// Catalogue and check behind the windows, each time from nothing.
Job BehindJob(const RunningProgram& running) {
  const auto workers = std::make_shared<std::unique_ptr<Workers>>();
  return {.name = "names and check behind the windows",
          .promise = {.gap = kFrame, .growth = true},
          .run =
              [workers] {
                (*workers)->check.start();
                RunLoopUntil([&] { return (*workers)->check.result() != nullptr; });
              },
          .bare = BareRead(running.folders.iniFiles()),
          .prepare = [workers, &running] { *workers = std::make_unique<Workers>(running.desk.folders); }};
}

bool IsSearching() {
  return Child<QPushButton>(kUses, "findButton").text() != "&Find";
}

int FoundRows() {
  return Child<QTreeView>(kUses, "foundTree").model()->rowCount();
}

void PrepareFindInFiles(const QString& text, bool asExpression) {
  if (ShownWindow(kUses) == nullptr) Trigger(kMain, "findInFiles");
  RunLoopUntil([] { return !IsSearching(); });
  Child<QLineEdit>(kUses, "soughtText").setText(text);
  Child<QCheckBox>(kUses, "asExpression").setChecked(asExpression);
  Settle();
}

void PressFind() {
  Child<QPushButton>(kUses, "findButton").click();
}

Job FirstLinesJob(const RunningProgram& running) {
  return {.name = "find in files, first lines",
          .promise = {.time = 100, .gap = kFrame},
          .run =
              [] {
                PressFind();
                RunLoopUntil([] { return FoundRows() > 0; });
              },
          .bare = BareRead(running.folders.iniFiles()),
          .prepare = [] { PrepareFindInFiles(kSought, false); }};
}

Job AllLinesJob(const RunningProgram& running) {
  return {.name = "find in files, an expression in all files",
          .promise = {.gap = kFrame, .growth = true},
          .run =
              [] {
                PressFind();
                RunLoopUntil([] { return !IsSearching(); });
                if (FoundRows() == 0) throw std::runtime_error("nothing was found");
              },
          .bare = BareRead(running.folders.iniFiles()),
          .prepare = [] { PrepareFindInFiles("Gun0*1\\b.*", true); }};
}

void TypeToFindAnything() {
  QTest::keyClick(&Child<QLineEdit>(kMain, "findAnythingField"), Qt::Key_A);
  Settle();
}

bool AreNamesFound() {
  const QAbstractItemModel& rows = *Child<QListView>(kMain, "findAnythingList").model();
  const QString said = rows.index(rows.rowCount() - 1, 0).data().toString();
  return rows.rowCount() > 1 && !said.startsWith("Reading");
}

void PrepareFindAnything() {
  CloseWindow(kUses);
  Trigger(kMain, "findAnything");
  TypeToFindAnything();
  RunLoopUntil(AreNamesFound);
  Child<QLineEdit>(kMain, "findAnythingField").clear();
}

// Till the list below the field is painted.
Job FieldJob(const RunningProgram&) {
  return {.name = "find anything, a key in the window",
          .promise = {.time = kFrame, .gap = kFrame},
          .run =
              [] {
                TypeToFindAnything();
                if (!AreNamesFound()) throw std::runtime_error("nothing was found");
              },
          .bare = {},
          .prepare = PrepareFindAnything};
}

}  // namespace

Jobs SearchJobs(const RunningProgram& running) {
  return {BehindJob(running), FirstLinesJob(running), AllLinesJob(running), FieldJob(running)};
}

}  // namespace korvane
