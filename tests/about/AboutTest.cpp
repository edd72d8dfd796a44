// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QPushButton>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include "about/SysInfo.h"
#include "about/frmAbout.h"
#include "platform/Programs.h"
#include "settings/SettingsStore.h"
#include "support/Fakes.h"
#include "support/GameFolder.h"

namespace korvane {
namespace {

const QString kProgramKey = "SOFTWARE\\Microsoft\\Shared Tools\\MSINFO";
const QString kFolderKey = "SOFTWARE\\Microsoft\\Shared Tools Location";

class FakeRegistry : public Registry {
 public:
  std::optional<RegistryValue> read(Root root, const QString& key, const QString& name) const override {
    const auto found = values.find(key + '|' + name);
    if (root != Root::localMachine || found == values.end()) return std::nullopt;
    return found->second;
  }
  std::map<QString, RegistryValue> values;
};

class FakePrograms : public Programs {
 public:
  bool installed(const QString& name) const override { return present.contains(name); }
  bool start(const QString& program, const QStringList& arguments) override {
    started += QStringList({program}) + arguments;
    return canStart;
  }
  QStringList present;
  QStringList started;
  bool canStart = true;
};

TEST(SystemInformation, TheFirstProgramThatIsThereIsStarted) {
  const GameFolder tools;
  tools.write("MSINFO32.EXE", "");
  const QString folder = tools.qpath();
  const RegistryValue program = QString::fromLatin1("C:\\Tools\\info.exe\0", 18);
  const struct {
    const char* what;
    std::map<QString, RegistryValue> registry;
    QStringList installed;
    QStringList started;
  } cases[] = {
      {"program",
       {{kProgramKey + "|PATH", program}, {kFolderKey + "|MSINFO", folder}},
       {"hardinfo"},
       {"C:\\Tools\\info.exe"}},
      {"folder", {{kFolderKey + "|MSINFO", folder}}, {"hardinfo"}, {folder + "\\MSINFO32.EXE"}},
      {"folder without the program", {{kFolderKey + "|MSINFO", folder + "\\none"}}, {}, {}},
      {"all desktops", {}, {"hardinfo", "gnome-control-center", "kinfocenter"}, {"kinfocenter"}},
      {"two desktops", {}, {"hardinfo", "gnome-control-center"}, {"gnome-control-center", "info-overview"}},
      {"the last choice", {}, {"hardinfo"}, {"hardinfo"}},
      {"nothing", {}, {}, {}},
  };
  for (const auto& machine : cases) {
    FakeRegistry registry;
    registry.values = machine.registry;
    FakePrograms programs;
    programs.present = machine.installed;
    EXPECT_EQ(StartSystemInformation(registry, programs), !machine.started.isEmpty()) << machine.what;
    EXPECT_EQ(programs.started, machine.started) << machine.what;
  }
}

TEST(SystemInformation, ValuesOfTheRegistryAreReadAsTexts) {
  const std::pair<RegistryValue, QString> cases[] = {
      {QString("plain"), "plain"},
      {QString::fromLatin1("ended\0", 6), "ended"},
      {QString::fromLatin1("twice\0\0", 7), QString::fromLatin1("twice\0", 6)},
      {QString(), ""},
      {quint32{4294967295}, "4294967295"},
  };
  for (const auto& [stored, text] : cases) {
    FakeRegistry registry;
    registry.values["Key|Name"] = stored;
    QString value = "before";
    EXPECT_TRUE(GetKeyValue(registry, Registry::Root::localMachine, "Key", "Name", value));
    EXPECT_EQ(value, text);
    EXPECT_FALSE(GetKeyValue(registry, Registry::Root::currentUser, "Key", "Name", value));
    EXPECT_EQ(value, "");
  }
}

class AboutBox : public testing::Test {
 protected:
  QTemporaryDir folder;
  SettingsStore store{folder.path()};
  FakeMessageBoxes messages;
  FakeRegistry registry;
  FakePrograms programs;
  frmAbout window{store, messages, registry, programs};
};

TEST_F(AboutBox, SaysSoWhenNoInformationProgramStarts) {
  auto* button = window.findChild<QPushButton*>("cmdSysInfo");
  button->click();
  programs.present = {"kinfocenter"};
  programs.canStart = false;
  button->click();
  ASSERT_EQ(messages.shown.size(), 2U);
  EXPECT_EQ(messages.shown[0].text, "System Information Is Unavailable At This Time");

  programs.canStart = true;
  button->click();
  EXPECT_EQ(messages.shown.size(), 2U);
}

TEST_F(AboutBox, TheExtrasKeyWorksWhereverTheFocusIs) {
  window.show();
  QApplication::setActiveWindow(&window);
  const QSignalSpy extras(&window, &frmAbout::extrasRequested);
  for (const char* name : {"CmdOK", "cmdSysInfo"}) {
    auto* button = window.findChild<QPushButton*>(name);
    button->setFocus();
    QTest::keyClick(button, Qt::Key_F2);
  }
  EXPECT_EQ(extras.count(), 2);
}

TEST_F(AboutBox, ClosingRemembersThePlace) {
  const QSignalSpy closed(&window, &frmAbout::closedForGood);
  window.show();
  QTest::keyClick(&window, Qt::Key_Return);
  EXPECT_FALSE(window.isVisible());
  EXPECT_EQ(closed.count(), 1);
  EXPECT_TRUE(store.find("EditWH", "frmAbout_Top"));
}

}  // namespace
}  // namespace korvane
