// SPDX-License-Identifier: GPL-3.0-or-later
#include <QHelpEvent>
#include <QToolTip>
#include <Qsci/qsciscintilla.h>

#include "manualeditor/ManEditFixture.h"
#include "manualeditor/TextTips.h"

namespace korvane {
namespace {

const std::string kText = GameFolder::CrLf(
    "Object Tank\n  BuildCost = 900 ; BuildCost\n  WeaponSet\n    Weapon = PRIMARY Gun\n    Weapon = "
    "SECONDARY Own\n"
    "  End\n  CommandSet = Nowhere\nEnd\nWeapon Own\n  ClipSize = 2\nEnd\n");

class TextTipsTest : public ManEditTest {
 protected:
  void open() {
    game_.ini(
        "AFile.ini",
        "Weapon Gun\n  PrimaryDamage = 40\n  AttackRange = 100\nEnd\nObject Hut\n  BuildCost = 50\nEnd\n");
    openFile(kText);
    ASSERT_TRUE(WaitFor([this] { return names_.isCurrent(); }));
  }
  std::string tip(std::string_view at) const {
    return window_->findChild<TextTips*>()->tipAt(static_cast<qsizetype>(text().utf8().find(at)));
  }
};

TEST_F(TextTipsTest, TellOfNamesAndKeys) {
  open();
  const struct {
    const char* at;
    const char* tip;
  } cases[] = {
      {"Gun", "Weapon Gun\nAFile.ini, line 1\n  PrimaryDamage = 40\n  AttackRange = 100"},
      {"Own", "Weapon Own\nthis text, line 9\n  ClipSize = 2"},
      {"Tank",
       "Object Tank\nthis text, line 1\n  BuildCost = 900\n  WeaponSet\n  Weapon = PRIMARY Gun\n"
       "  Weapon = SECONDARY Own"},
      {"BuildCost", "BuildCost: a key of Object\nTakes a number.\nExample: BuildCost = 50\n  in Object Hut"},
      {"WeaponSet", "WeaponSet: a block of Object"},
      {"Nowhere", ""},
      {"900", ""},
      {"; BuildCost", ""},
      {"Object", "Object: a block"},
  };
  for (const auto& each : cases) EXPECT_EQ(tip(each.at), each.tip) << each.at;
}

TEST_F(TextTipsTest, TheUnsavedTextCounts) {
  open();
  text().goTo(9, 0, 14);
  text().replaceSelection("  ClipSize = 7");
  EXPECT_TRUE(WaitFor([this] { return tip("Own") == "Weapon Own\nthis text, line 9\n  ClipSize = 7"; }));
}

TEST_F(TextTipsTest, PointingAtAWordShowsThem) {
  open();
  const auto view = text().view();
  const auto position = static_cast<qsizetype>(kText.find("ClipSize")) + 2;
  const QPoint point(static_cast<int>(view.send(QsciScintillaBase::SCI_POINTXFROMPOSITION, 0, position)),
                     static_cast<int>(view.send(QsciScintillaBase::SCI_POINTYFROMPOSITION, 0, position)) + 2);
  QWidget* viewport = view.control().viewport();
  QHelpEvent event(QEvent::ToolTip, point, viewport->mapToGlobal(point));
  QCoreApplication::sendEvent(viewport, &event);
  EXPECT_TRUE(QToolTip::text().contains("ClipSize: a key of Weapon")) << QToolTip::text().toStdString();
}

}  // namespace
}  // namespace korvane
