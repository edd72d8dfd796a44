// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QDir>

#include <cerrno>
#include <unistd.h>

#include "faults/FaultSweep.h"
#include "faults/Texts.h"
#include "platform/FileWriter.h"
#include "platform/KeptVersions.h"
#include "platform/UnsavedText.h"

namespace korvane {
namespace {

const std::string kFile = "Data/INI/Weapon.ini";
const std::string kJournal = kFile + ".versions/open/a.journal";
const std::string kOld = "old\r\n";

std::string Saved(const std::string& size) {
  return GameFolder::CrLf(NewText(size));
}

QString PathIn(const GameFolder& folder) {
  return QString::fromStdString(folder.native(kFile).string());
}

bool IsKept(const GameFolder& folder, const KeptVersions& versions, const std::string& text) {
  const auto kept = KeptVersions::versionsIn(versions.folderOf(PathIn(folder)));
  return std::ranges::any_of(kept, [&](const KeptVersion& version) {
    return KeptVersions::read(version) == QString::fromStdString(text);
  });
}

// Without a start of the program.
bool LiesBelowVersions(const GameFolder& folder, const std::string& text) {
  const auto files = std::filesystem::recursive_directory_iterator(folder.native(kFile + ".versions"));
  return std::any_of(begin(files), end(files), [&](const std::filesystem::directory_entry& file) {
    return VersionOfName(QString::fromStdString(file.path().filename().string())) &&
           folder.read(file.path().lexically_relative(folder.native("")).string()) == text;
  });
}

// As the next start of the program finds it.
bool IsKept(const GameFolder& folder, const std::string& text) {
  const FileWriter writer;
  return IsKept(folder, KeptVersions(writer, PathIn(folder) + ".versions"), text);
}

// A file that is neither old nor new counts as no loss when the next start names the version that was kept.
bool IsNamed(const GameFolder& folder) {
  const FileWriter writer;
  const KeptVersions versions(writer, PathIn(folder) + ".versions");
  return versions.torn().size() == 1 && IsKept(folder, versions, kOld);
}

SweptStep Saving(const std::string& size) {
  SweptStep step;
  step.name = "save " + size + " bytes";
  step.command = {KORVANE_ONE_STEP, "save", "@/" + kFile, size};
  step.prepare = [](const GameFolder& folder) { folder.write(kFile, kOld); };
  const auto isWhole = [size](const GameFolder& folder) {
    return folder.read(kFile) == Saved(size) || folder.read(kFile) == kOld;
  };
  const auto isKept = [](const GameFolder& folder) {
    return folder.read(kFile) == kOld || LiesBelowVersions(folder, kOld);
  };
  step.loss = [=](const GameFolder& folder, const RunResult&) {
    return isWhole(folder) || isKept(folder) ? "" : "the file is cut off, and its former version is gone";
  };
  step.lossUnlessTold = [=](const GameFolder& folder) {
    if (!isWhole(folder)) return IsNamed(folder) ? "" : "the file is cut off";
    return isKept(folder) ? "" : "the former version is gone";
  };
  step.isDone = [size](const GameFolder& folder) { return folder.read(kFile) == Saved(size); };
  step.again = step.command;
  return step;
}

TEST(VersionFaults, ASaveLosesNeitherItsTextNorTheFormerOne) {
  const SweptStep step = Saving("300");
  ExpectNothingLost(step, Sweep(step));
  ExpectNothingLost(step, SweepFreeSpace(step, 900, 30));
}

TEST(VersionFaults, ASaveWithoutHardLinksLosesNothingEither) {
  SweptStep step = Saving("300");
  step.name += " without hard links";
  step.always = {{"link", 1, "on", EPERM}};
  ExpectNothingLost(step, Sweep(step));
}

TEST(VersionFaults, ASaveInPlaceLosesNothingOrIsNamedAtTheNextStart) {
  if (geteuid() != 0) GTEST_SKIP() << "only root can make files of others";
  SweptStep step = Saving("300");
  step.name += " in place";
  step.always = {{"chown", 1, "on", EPERM}};
  step.prepare = [](const GameFolder& folder) {
    folder.write(kFile, kOld);
    ASSERT_EQ(chown(folder.native(kFile).c_str(), 1234, 1234), 0);
  };
  step.loss = [loss = step.loss](const GameFolder& folder, const RunResult& result) {
    const std::string now = folder.read(kFile);
    const bool putBack = !result.passing || now == kOld || now == Saved("300");
    return putBack ? loss(folder, result) : "the former text is not put back";
  };
  ExpectNothingLost(step, Sweep(step));
  ExpectNothingLost(step, SweepFreeSpace(step, 900, 30));
}

TEST(VersionFaults, ATextThatIsKeptIsKeptWhole) {
  SweptStep step;
  step.name = "keep an unsaved text";
  step.command = {KORVANE_ONE_STEP, "unsaved", "@/" + kFile, "300"};
  step.prepare = [](const GameFolder&) {};
  step.isDone = [](const GameFolder& folder) { return IsKept(folder, Saved("300")); };
  step.loss = [](const GameFolder&, const RunResult&) { return std::string(); };
  step.again = step.command;
  ExpectNothingLost(step, Sweep(step));
  ExpectNothingLost(step, SweepFreeSpace(step, 600, 20));
}

// The last of the texts that were noted, or the next one.
TEST(VersionFaults, ADraftIsReplacedByTheNextOneInOneStep) {
  SweptStep step;
  step.name = "three notes of a text that is typed";
  step.command = {KORVANE_ONE_STEP, "draft", "@/" + kFile, "300"};
  step.prepare = [](const GameFolder&) {};
  const auto isKept = [](const GameFolder& folder, int number) {
    return number == 0 || IsKept(folder, GameFolder::CrLf(DraftText(number, "300")));
  };
  step.isDone = [=](const GameFolder& folder) { return isKept(folder, 3); };
  step.loss = [=](const GameFolder& folder, const RunResult& result) {
    int noted = 3;
    while (noted > 0 && result.text.find("noted " + std::to_string(noted)) == std::string::npos) --noted;
    const bool fine = isKept(folder, noted) || isKept(folder, noted + 1);
    return fine ? std::string() : "text " + std::to_string(noted) + " is gone";
  };
  step.survivesPowerCut = false;  // three seconds of typing are not worth a wait for the disk
  ExpectNothingLost(step, Sweep(step));
  ExpectNothingLost(step, SweepFreeSpace(step, 1100, 20));
}

TEST(VersionFaults, ATextLostInACrashIsStillThereAfterAStartThatFails) {
  SweptStep step;
  step.name = "a start after a crash";
  step.command = {KORVANE_ONE_STEP, "start", "@/" + kFile, "-"};
  step.prepare = [](const GameFolder& folder) {
    folder.write(kJournal, HeadOfJournal({PathIn(folder), false, {}}) + NewText("300"));
  };
  step.isDone = [](const GameFolder& folder) { return IsKept(folder, Saved("300")); };
  step.loss = [&step](const GameFolder& folder, const RunResult&) {
    return step.isDone(folder) ? std::string() : "the text is gone";
  };
  ExpectNothingLost(step, Sweep(step));
  ExpectNothingLost(step, SweepFreeSpace(step, 600, 20));
}

}  // namespace
}  // namespace korvane
