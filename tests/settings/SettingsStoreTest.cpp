// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QSettings>
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
  const QStringList history{"Object Tank", "", "50%, \"quoted\" = \\x", " blanks ", "\t\uFEFFmark"};
  SettingsStore(folder.path()).SaveList("Search List", history);
  SettingsStore again(folder.path());
  EXPECT_EQ(again.LoadList("Search List"), history);
  EXPECT_EQ(again.get("Search List", "0Name", {}), "Object Tank");
  EXPECT_EQ(again.get("Search List", "ItemNum", {}), "5");

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
    if (EverythingIn(folder).find((name + "=" + saved).toStdString()) == std::string::npos) ++losses;
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

const QString kFile = QStringLiteral("/Command And Conquer Generals Korvane.ini");

QByteArray BytesOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : "unreadable";
}

void Write(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  if (file.open(QIODevice::WriteOnly)) file.write(bytes);
}

TEST(SettingsStore, AFileThatIsNoneOfSettingsIsLeftAlone) {
  const std::pair<const char*, QByteArray> cases[] = {
      {"a word", "[Settings]\nExit=0\nInfo"},
      {"a section without an end", "[Settings\nExit=0\n"},
      {"quotes without an end", "[Settings]\nExit=\"0\n"},
      {"zeros", QByteArray("[Settings]\nExit=0\n") + QByteArray(100, '\0')},
      {"an entry with a zero", QByteArray("[Settings]\nExit=\0 0\n", 20)},
      {"larger than 8 MB", "[Settings]\n;" + QByteArray(8 << 20, ' ')},
  };
  for (const auto& [name, bytes] : cases) {
    const QTemporaryDir folder;
    Write(folder.path() + kFile, bytes);
    SettingsStore store(folder.path());
    EXPECT_NE(store.trouble(), "") << name;
    store.SaveSet("InfoTab", "3");
    EXPECT_TRUE(BytesOf(folder.path() + kFile) == bytes) << name;
    EXPECT_EQ(store.GetSet("InfoTab"), "3") << name << ": holds for this run";
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1) << name;
  }
}

TEST(SettingsStore, WhatCouldNotBeStoredIsStoredLater) {
  const QTemporaryDir folder;
  SettingsStore store(folder.path());
  QStringList told;
  QObject::connect(&store, &SettingsStore::troubleChanged, [&](const QString& text) { told += text; });
  Write(folder.path() + kFile, "damaged");
  store.SaveSet("Exit", "0");
  store.SaveSet("InfoTab", "3");
  EXPECT_EQ(told, QStringList{"The settings could not be stored: it is damaged"});
  QFile::remove(folder.path() + kFile);
  store.SaveSet("MenuiFont", "Sans");
  EXPECT_EQ(told.last(), "");
  const SettingsStore later(folder.path());
  EXPECT_EQ(later.GetSet("Exit") + later.GetSet("InfoTab") + later.GetSet("MenuiFont"), "03Sans");
}

TEST(SettingsStore, WhatAKilledProgramLeftDelaysNothing) {
  for (const QByteArray& lock : {QByteArray(), QByteArray("1\nkorvane\nanother.machine\n")}) {
    const QTemporaryDir folder;
    Write(folder.path() + kFile + ".lock", lock);
    Write(folder.path() + kFile + ".korvane-0123456789abcdef.part", "[Sett");
    QElapsedTimer time;
    time.start();
    SettingsStore(folder.path()).SaveSet("Exit", "0");
    EXPECT_LT(time.elapsed(), 1000);
    EXPECT_EQ(SettingsStore(folder.path()).GetSet("Exit"), "0");
  }
}

TEST(SettingsStore, AChangeTouchesItsOwnLineOnly) {
  const QTemporaryDir folder;
  const QByteArray rest = "\r\n; a remark\r\n[Search%20List]\r\n0Name=@Variant(\\0\\0)\r\n";
  Write(folder.path() + kFile, "; mine\r\n[Settings]\nexit=7\nExit = 1\r\nExit=2 ; twice\nodd=a, b" + rest);
  SettingsStore store(folder.path());
  EXPECT_EQ(store.GetSet("Exit"), "2");
  EXPECT_EQ(store.GetSet("odd"), "a, b");
  store.SaveSet("Exit", "0");
  EXPECT_EQ(BytesOf(folder.path() + kFile), "; mine\r\n[Settings]\nexit=7\nExit=0\n; twice\nodd=a, b" + rest);
  for (int i = 0; i < 3; ++i) {
    store.SaveList("Other", {"x"});
    store.deleteSection("Other");
  }
  EXPECT_TRUE(BytesOf(folder.path() + kFile).endsWith(rest)) << "nothing is left of a section that goes";
}

// What the version before reads and writes.
TEST(SettingsStore, ANewEntryBeginsALineOfItsOwn) {
  for (const char* last : {"Exit=0 ; a remark\n", "Exit=0 ; a remark", "Exit=0", "Exit=0\\", "Exit=0\\\n",
                           "Exit=0\\\r", "Exit=0\\\n; a remark", "Exit=0\n; a remark \\"}) {
    const QTemporaryDir folder;
    Write(folder.path() + kFile, "[Settings]\n" + QByteArray(last));
    SettingsStore(folder.path()).SaveSet("InfoTab", "3");
    const SettingsStore again(folder.path());
    EXPECT_EQ(again.GetSet("InfoTab"), "3") << last;
    EXPECT_EQ(again.GetSet("Exit"), "0") << last;
  }
}

TEST(SettingsStore, QtReadsWhatIsStoredAndTheOtherWayRound) {
  const QStringList values{"",
                           " ",
                           "a,b",
                           "a;b=c",
                           "\"",
                           "\\x41\\",
                           "@",
                           "@@Variant(",
                           "@String(",
                           "tab\tline\r\nend",
                           "\x01"
                           "1f",
                           "\u00e4\u20ac\U0001F600",
                           QString(QChar(u'\0')) + "7",
                           "%20\x7f",
                           "'?",
                           ", ",
                           "a, b;"};
  const QStringList names{"CCPath", "a b", "50%", "\u00e4",  "\u20ac",
                          "x=y",    "[z]", ";",   "General", "Caf\u00e9/x"};
  struct Entry {
    QString section;
    QString key;
    QString value;
  };
  std::vector<Entry> entries;
  for (const char* section : {"Settings", "General", "Search List", "\u00e4\u20ac"}) {
    for (const QString& name : names) {
      for (const QString& value : values)
        entries.push_back({section, name + QString::number(entries.size()), value});
    }
  }
  for (const bool qtWrites : {true, false}) {
    const QTemporaryDir folder;
    QSettings qt(folder.path() + kFile, QSettings::IniFormat);
    {
      SettingsStore store(folder.path());
      const SettingsStore::Batch batch(store);
      for (const auto& [section, key, value] : entries) {
        qtWrites ? qt.setValue(section + '/' + key, value) : store.save(section, key, value);
      }
    }
    qt.sync();
    const SettingsStore later(folder.path());
    for (const auto& [section, key, value] : entries) {
      EXPECT_EQ(qt.value(section + '/' + key, "absent").toString(), value) << (section + key).toStdString();
      EXPECT_EQ(later.get(section, key, "absent"), value) << (section + key).toStdString();
    }
  }
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
