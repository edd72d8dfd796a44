// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include "settings/SettingsStore.h"

#ifndef _WIN32
#include <sys/wait.h>
#include <unistd.h>
#endif

namespace korvane {
namespace {

TEST(SettingsStore, AListComesBackInItsOrder) {
  const QTemporaryDir folder;
  const QStringList history{"Object Tank", "", "50%, \"quoted\" = \\x", " blanks "};
  SettingsStore(folder.path()).SaveList("Search List", history);
  SettingsStore again(folder.path());
  EXPECT_EQ(again.LoadList("Search List"), history);
  EXPECT_EQ(again.get("Search List", "0Name", {}), "Object Tank");
  EXPECT_EQ(again.get("Search List", "ItemNum", {}), "4");

  again.deleteSection("Search List");
  EXPECT_TRUE(again.LoadList("Search List").isEmpty());
}

TEST(SettingsStore, ADamagedCountGivesNoList) {
  const QTemporaryDir folder;
  SettingsStore store(folder.path());
  for (const char* count : {"", "-1", "many", "99999999999999"}) {
    store.save("Search List", "ItemNum", count);
    EXPECT_TRUE(store.LoadList("Search List").isEmpty()) << count;
  }
  store.save("Search List", "ItemNum", "2000000000");
  EXPECT_LT(store.LoadList("Search List").size(), 100000);
}

TEST(SettingsStore, TwoCopiesOfTheProgramShareOneStore) {
  const QTemporaryDir folder;
  SettingsStore one(folder.path());
  SettingsStore other(folder.path());
  one.SaveSet("Exit", "0");
  other.SaveSet("InfoTab", "3");
  const SettingsStore later(folder.path());
  EXPECT_EQ(later.GetSet("Exit"), "0");
  EXPECT_EQ(later.GetSet("InfoTab"), "3");
  EXPECT_EQ(later.GetSet("MenuiFont"), "1");
}

#ifndef _WIN32

std::string EverythingIn(const QString& folder) {
  std::string text;
  for (const QFileInfo& file : QDir(folder).entryInfoList({"*.ini"}, QDir::Files)) {
    QFile ini(file.filePath());
    if (ini.open(QIODevice::ReadOnly)) text += ini.readAll().toStdString();
  }
  return text;
}

// Saves one number after the other, and counts how often what it saved is not there any more.
int LossesOf(const QString& name, const QString& folder) {
  SettingsStore store(folder);
  int losses = 0;
  for (int i = 100; i < 200; ++i) {
    const QString saved = QString::number(i);
    store.SaveSet(name, saved);
    if (EverythingIn(folder).find((name + '=' + saved).toStdString()) == std::string::npos) ++losses;
  }
  return losses;
}

TEST(SettingsStore, TwoCopiesOfTheProgramAtOnceLoseNothing) {
  const QTemporaryDir folder;
  const pid_t child = fork();
  const int losses = LossesOf(child == 0 ? "Child" : "Parent", folder.path());
  if (child == 0) _exit(losses > 0 ? 1 : 0);
  int lossesOfChild = 0;
  waitpid(child, &lossesOfChild, 0);
  EXPECT_EQ(losses, 0);
  EXPECT_EQ(lossesOfChild, 0);
}

#endif

TEST(SettingsStore, AFolderThatCannotBeWrittenKeepsTheSettingsForThisRun) {
  const QTemporaryDir folder;
  SettingsStore store(folder.filePath("file/below"));
  QFile inTheWay(folder.filePath("file"));
  ASSERT_TRUE(inTheWay.open(QIODevice::WriteOnly));
  store.SaveSet("Exit", "0");
  EXPECT_EQ(store.GetSet("Exit"), "0");
}

TEST(SettingsStore, FlagsAreReadFromNumbersAndWords) {
  const std::pair<const char*, std::optional<bool>> cases[] = {
      {"1", true},      {"-1", true},  {"0", false}, {"0.0", false},        {"True", true},
      {"fALSE", false}, {" 2 ", true}, {"", {}},     {"yes", std::nullopt}, {"1,5", std::nullopt},
  };
  for (const auto& [text, flag] : cases) EXPECT_EQ(FlagOf(text), flag) << text;
}

}  // namespace
}  // namespace korvane
