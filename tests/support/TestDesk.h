// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>
#include <QTemporaryDir>

#include <string>
#include <vector>

#include "app/EditorLauncher.h"
#include "app/ManualEditRequest.h"
#include "app/NameSource.h"
#include "app/Services.h"
#include "settings/SettingsStore.h"
#include "support/Fakes.h"
#include "support/GameFolder.h"

namespace korvane {

// Remembers what the windows ask of each other.
class FakeLauncher : public EditorLauncher {
 public:
  void showManualEditor(const ManualEditRequest& request) override {
    calls += request.text ? "manual text" : "manual file";
    requests.push_back(request);
  }
  bool goToInManualEditor(const QString&, const ManualEditPlace&) override { return false; }
  bool editInManualEditor(const QString& file, const EditPlan& plan) override {
    calls += "edit " + file;
    plans.push_back(plan);
    return true;
  }
  std::optional<std::string> textInManualEditor(const QString&) const override { return unsavedText; }
  std::optional<std::string> utf8InManualEditor(const QString&) const override { return unsavedText; }
  bool rewriteInManualEditor(const QString& file, const TextRewrite& rewrite) override {
    calls += "rewrite " + file;
    rewritten = rewrite(unsavedText.value_or(""));
    return rewritten.has_value();
  }
  std::optional<std::size_t> objectsThatName(std::string_view, std::string_view) override { return objects; }
  bool showEntry(TableEditorId, const QString& name) override {
    calls += "entry " + name;
    return true;
  }
  void search(SearchCommand, QWidget&) override { calls += "search"; }
  void showDefinition(const NameHere& name) override { calls += "definition of " + name.name; }
  QString tellOfName(const NameHere& name) override { return "about " + name.name; }
  void showWeaponEditor() override { calls += "weapons"; }
  void showArmourEditor() override { calls += "armours"; }
  void showCommandSetEditor() override { calls += "command sets"; }
  void showCommandButtonEditor() override { calls += "command buttons"; }
  void selectWeapon(const QString& name) override { calls += "select weapon " + name; }
  void selectArmour(const QString& name) override { calls += "select armour " + name; }
  void showOptions() override { calls += "options"; }
  void showAbout() override { calls += "about"; }
  void CloseBrowse() override { calls += "close browse"; }
  bool keepUnsavedTexts() override {
    calls += "keep texts";
    return textsKept;
  }

  bool hasUnsavedText(const QString& file) const override { return file == unsavedFile; }
  QString convertLineEnds(const QString& path) override {
    calls += "convert " + path;
    return {};
  }

  QStringList takeCalls() { return std::exchange(calls, {}); }

  QStringList calls;
  std::vector<EditPlan> plans;
  std::optional<std::string> unsavedText;
  std::optional<std::string> rewritten;
  std::optional<std::size_t> objects;
  bool textsKept = true;
  QString unsavedFile;
  std::vector<ManualEditRequest> requests;
};

// A desktop of a test's own: a small game folder, empty settings, and fakes for the user and the system.
struct TestDesk {
  GameFolder game;
  QTemporaryDir settingsFolder;
  SettingsStore settings{settingsFolder.path()};
  FakeMessageBoxes messages;
  FakeShell shell;
  FakeHelpViewer help;
  FakeProcessEnd process;
  ScriptedYield yield;
  Folders folders{game.qpath(), "C:\\Korvane"};
  Services services{settings, messages, shell, help, process, yield, folders};
};

}  // namespace korvane
