// SPDX-License-Identifier: GPL-3.0-or-later
#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include <fstream>
#include <memory>
#include <utility>

#include "BarePass.h"
#include "ProgramJobs.h"
#include "Windows.h"
#include "app/ManualEditRequest.h"
#include "startup/Program.h"

namespace korvane {

namespace {

const QString kEditor = QStringLiteral("FrmManEdit");
const QString kOpenLargest = QStringLiteral("MnuFileEdit0");
const QString kMiddleText = QStringLiteral("Object AmericaVehicle00110");
const QString kProposals = QStringLiteral("ProposalList");
constexpr int kHits = 10'000;
constexpr int kMarks = 50;
constexpr int kMiddleLine = 30'000;   // of the largest file
constexpr int kUntilChecked = 2'000;  // milliseconds in which the names are read and the text is checked
constexpr std::size_t kHugeSize = 50'000'000;

bool IsIdle() {
  return ShownWindow(kEditor) != nullptr && Child<QLabel>(kEditor, "Panel2").text() == "Idle";
}

void WaitForIdle() {
  while (!IsIdle()) QCoreApplication::processEvents();
  Settle();
}

void Open() {
  Trigger("FrmEdit", kOpenLargest);
  WaitForIdle();
}

void EnsureOpen() {
  if (!IsIdle()) Open();
}

void Find(const QString& text) {
  Child<QComboBox>(kEditor, "CboFind").setEditText(text);
  Child<QAbstractButton>(kEditor, "BtnFind").click();
  Settle();
}

void Type(Qt::Key key) {
  QTest::keyClick(Child<QWidget>(kEditor, "TxtManEdit").focusProxy(), key);
  Settle();
}

std::string TextWithHits() {
  std::string text;
  for (int i = 0; i < kHits; ++i) {
    text.append("  Needle = ").append(std::to_string(i)).append("\r\n");
    for (int line = 0; line < 5; ++line) text += "    AnimationMode                = LOOP\r\n";
  }
  return text;
}

std::string HugeText(const BenchFolders& folders) {
  const std::string once = ReadWhole(folders.objects(kLargestFile));
  std::string text;
  while (text.size() < kHugeSize) text += once;
  return text;
}

// A game folder beside the measured one, with the text in the place of the largest file; made at the first
// use.
std::filesystem::path OtherGame(const BenchFolders& folders, const char* name,
                                const std::function<std::string()>& text) {
  const BenchFolders other{folders.home / name};
  if (std::filesystem::exists(other.game())) return other.game();
  std::filesystem::create_directories(other.objects(""));
  std::ofstream(other.objects(kLargestFile), std::ios::binary) << text();
  return other.game();
}

void OpenOf(const std::filesystem::path& game, Folders& folders) {
  const QString own = std::exchange(folders.game, ProgramQText(game));
  Open();
  folders.game = own;
}

void PrepareReplaceAll(const RunningProgram& running) {
  CloseWindow(kEditor);
  OpenOf(OtherGame(running.folders, "hits", TextWithHits), running.desk.folders);
  Trigger(kEditor, "MnuReplace");
  Child<QLineEdit>("FrmReplace", "TxtFind").setText("Needle");
  Child<QLineEdit>("FrmReplace", "TxtReplace").setText("Thread");
  Settle();
}

void ReplaceAll() {
  Child<QAbstractButton>("FrmReplace", "BtnReplaceAll").click();
  Settle();
  if (!Child<QLabel>("FrmReplace", "LblResult").text().startsWith(QString::number(kHits)))
    throw std::runtime_error("not all was replaced");
}

Job ReplaceAllJob(const RunningProgram& running) {
  return {.name = "replace all, 10,000 hits",
          .promise = {.time = 1000},
          .run = ReplaceAll,
          .bare = BareRead({running.folders.objects(kLargestFile)}),
          .prepare = [&running] { PrepareReplaceAll(running); },
          .size = Job::Size::fixed};
}

Job HugeJob(const RunningProgram& running) {
  const auto huge = [&running] {
    return OtherGame(running.folders, "huge", [&running] { return HugeText(running.folders); });
  };
  return {.name = "manual editor, open 50 MB",
          .promise = {.time = 2000},
          .run = [&running, huge] { OpenOf(huge(), running.desk.folders); },
          .bare = BareRead({BenchFolders{running.folders.home / "huge"}.objects(kLargestFile)}),
          .prepare =
              [huge] {
                huge();
                CloseWindow(kEditor);
              },
          .size = Job::Size::fixed};
}

// To a new file each time, as a save that replaces files whole has to: to write over the pages of a file that
// was just emptied is ten times as fast.
std::function<void()> PlainSave(const std::filesystem::path& file) {
  return [bytes = ReadWhole(file), file, number = 0]() mutable {
    PlainWrite(file.string() + std::to_string(++number), bytes);
  };
}

Job SaveJob(const RunningProgram& running) {
  return {.name = "manual editor, save",
          .promise = {.ratio = 3},
          .run = [] { Trigger(kEditor, "MnuSave"); },
          .bare = PlainSave(running.folders.objects(kLargestFile)),
          .prepare =
              [] {
                EnsureOpen();
                Type(Qt::Key_X);
              }};
}

Job OpenJob(const RunningProgram& running) {
  return {.name = "manual editor, open",
          .promise = {.time = 100, .memory = 150},
          .run = Open,
          .bare = BareRead({running.folders.objects(kLargestFile)}),
          .prepare = [] { CloseWindow(kEditor); }};
}

Job OpenAtLineJob(const RunningProgram& running) {
  return {.name = "manual editor, open at a line",
          .promise = {.time = 100, .memory = 150},
          .run =
              [&running] {
                ManualEditRequest request;
                request.ManualEditFile = ProgramQText(running.folders.objects(kLargestFile));
                request.place.line = kMiddleLine;
                running.program.showManualEditor(request);
                WaitForIdle();
              },
          .bare = BareRead({running.folders.objects(kLargestFile)}),
          .prepare = [] { CloseWindow(kEditor); }};
}

bool ProposalsAreShown() {
  const auto* list = Window(kEditor).findChild<QWidget*>(kProposals);
  return list != nullptr && list->isVisible();
}

// Marks in many lines, all other blocks folded, and a list of proposals for what is typed.
void PrepareProposals() {
  CloseWindow(kEditor);
  Open();
  QTest::qWait(kUntilChecked);
  for (int i = 0; i < kMarks; ++i) {
    Trigger(kEditor, "toggleMark");
    Type(Qt::Key_Down);
  }
  Trigger(kEditor, "foldAll");
  Find(kMiddleText);
  Type(Qt::Key_End);
  QTest::keyClicks(Child<QWidget>(kEditor, "TxtManEdit").focusProxy(), "\r  CommandSet = ");
  Trigger(kEditor, "completeWord");
  QTest::qWait(kUntilChecked);
  if (!ProposalsAreShown()) throw std::runtime_error("nothing is proposed");
}

Job ProposalsJob() {
  const auto prepared = std::make_shared<bool>(false);
  return {.name = "key with marks, folds and proposals",
          .promise = {.time = 16, .gap = 16},
          .run =
              [] {
                Type(Qt::Key_A);
                if (!ProposalsAreShown()) throw std::runtime_error("nothing is proposed");
              },
          .bare = {},
          .prepare =
              [prepared] { std::exchange(*prepared, true) ? Type(Qt::Key_Backspace) : PrepareProposals(); }};
}

Job KeystrokeJob(const RunningProgram& running) {
  return {.name = "keystroke in the middle",
          .promise = {.time = 16},
          .run = [] { Type(Qt::Key_X); },
          .bare = BareRead({running.folders.objects(kLargestFile)}),
          .prepare =
              [] {
                EnsureOpen();
                Find(kMiddleText);
                Type(Qt::Key_End);
              }};
}

Job FindJob(const RunningProgram& running) {
  return {.name = "find at the end",
          .promise = {.time = 50},
          .run = [] { Find(kFarthestText); },
          .bare = BareRead({running.folders.objects(kLargestFile)}),
          .prepare =
              [] {
                EnsureOpen();
                Find(kMiddleText);
              }};
}

}  // namespace

Jobs ManualEditorJobs(const RunningProgram& running) {
  return {OpenJob(running), OpenAtLineJob(running), KeystrokeJob(running),  ProposalsJob(),
          FindJob(running), SaveJob(running),       ReplaceAllJob(running), HugeJob(running)};
}

}  // namespace korvane
