// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTemporaryDir>
#include <QtTest>

#include <memory>
#include <string>
#include <string_view>

#include "app/CatalogueService.h"
#include "app/ManualEditRequest.h"
#include "app/Services.h"
#include "controls/FontDialog.h"
#include "controls/NoticeBar.h"
#include "manualeditor/FrmManEdit.h"
#include "manualeditor/IniTextEdit.h"
#include "platform/FileWriter.h"
#include "platform/KeptVersions.h"
#include "settings/SettingsStore.h"
#include "support/Fakes.h"
#include "support/GameFolder.h"

namespace korvane {

// Counts turns of the event loop: the clock goes on while a busy machine holds the program up.
template <typename Condition>
bool WaitFor(Condition condition, int turns = 500) {
  constexpr int kTurn = 10;  // milliseconds at least
  for (; turns > 0 && !condition(); --turns) QTest::qWait(kTurn);
  return condition();
}

class FakeFontChooser : public FontChooser {
 public:
  FontRecord ShowFontDialog() override { return answer; }
  FontRecord answer;
};

// The real window on a small game folder, opened the way the commands open it.
class ManEditTest : public testing::Test {
 protected:
  ManEditTest() { remake(); }

  void remake() {
    window_ = std::make_unique<FrmManEdit>(services_, files_, versions_, fonts_, names_);
    QObject::connect(window_.get(), &FrmManEdit::closedForGood, [this] { ++closed_; });
  }

  void openFile(std::string_view bytes) {
    game_.write("Data/INI/Weapon.ini", bytes);
    ASSERT_TRUE(window_->open({path_}));
    show();
  }
  void openPart(std::string_view bytes) {
    ASSERT_TRUE(window_->open({path_, 1, std::string(bytes)}));
    show();
  }
  void show() {
    window_->show();
    ASSERT_TRUE(WaitFor([this] { return window_->ManEditInitDone(); }));
  }

  template <typename Type>
  Type* part(const char* name) const {
    return window_->findChild<Type*>(name);
  }
  QString panel(int number) const {
    return part<QLabel>(QByteArray("Panel").append(QByteArray::number(number)).constData())->text();
  }
  IniTextEdit& text() const { return *part<IniTextEdit>("TxtManEdit"); }
  void trigger(const char* action) const { part<QAction>(action)->trigger(); }
  void type(const QString& keys) const { QTest::keyClicks(text().focusProxy(), keys); }
  void find(const QString& sought) const {
    part<QComboBox>("CboFind")->setEditText(sought);
    part<QPushButton>("BtnFind")->click();
  }
  std::string saved() const { return game_.read("Data/INI/Weapon.ini"); }
  std::vector<KeptVersion> kept() const { return KeptVersions::versionsIn(versions_.folderOf(path_)); }
  // Each as its kind and its text, the newest first.
  QStringList keptTexts() const {
    constexpr const char* kKinds[] = {"replaced: ", "unsaved: ", "crashed: "};
    QStringList texts;
    for (const KeptVersion& version : kept()) {
      texts += kKinds[static_cast<int>(version.kind)] + KeptVersions::read(version).value_or("unreadable");
    }
    return texts;
  }
  // What the window says of its file and of the draft.
  QStringList notices() const { return window_->findChild<NoticeBar*>()->sentences(); }

  QTemporaryDir folder_;
  GameFolder game_;
  const QString path_ = game_.qpath() + "\\Data\\INI\\Weapon.ini";
  SettingsStore settings_{folder_.path()};
  FakeMessageBoxes messages_;
  FakeShell shell_;
  FakeHelpViewer help_;
  FakeProcessEnd process_;
  ScriptedYield yield_;
  Folders folders_{game_.qpath(), {}};
  const Services services_{settings_, messages_, shell_, help_, process_, yield_, folders_};
  FileWriter files_;
  KeptVersions versions_{files_, folder_.filePath("versions")};
  FakeFontChooser fonts_;
  CatalogueService names_{folders_};
  int closed_ = 0;
  std::unique_ptr<FrmManEdit> window_;
};

}  // namespace korvane
