// SPDX-License-Identifier: GPL-3.0-or-later
#include <QPushButton>
#include <QSignalSpy>

#include "editors/EditorDesk.h"
#include "editors/FrmAmrPar.h"
#include "editors/FrmArmour.h"

namespace korvane {
namespace {

class ArmourEditorTest : public EditorDesk {
 protected:
  void SetUp() override {
    game.ini("Armor.ini",
             "Armor TankArmor\n  Armor = DEFAULT 100%\n\n  Armor = SMALL_ARMS 25% ; weak\nEnd\n"
             "Armor human\n  Armor = FLAME 150%\nEnd\n");
  }
};

TEST_F(ArmourEditorTest, AnArmourTypeIsShownLineByLine) {
  const auto editor = open<FrmArmour>();
  EXPECT_EQ(entries(*editor), (QStringList{"human", "TankArmor"}));
  EXPECT_EQ(selected(*editor), "TankArmor");
  click(*editor, 1);
  EXPECT_EQ(editor->windowTitle(), "TankArmor - Armour Editor");
  EXPECT_EQ(rows(*editor), (QStringList{"DEFAULT|100%", "SMALL_ARMS|25%"}));
  editor->selectEntry("human");
  EXPECT_EQ(rows(*editor).size(), 2) << "only a click fills the table";
}

TEST_F(ArmourEditorTest, NothingIsSelectedWhenTheMainWindowHasAnArmourChosen) {
  units.chosen = true;
  EXPECT_EQ(selected(*open<FrmArmour>()), "none");
}

TEST_F(ArmourEditorTest, TheDialogAddsTheSelectedDamageType) {
  const auto editor = open<FrmArmour>();
  QSignalSpy asked(editor.get(), &FrmArmour::damageTypesAsked);
  trigger(*editor, "Test");
  EXPECT_EQ(asked.count(), 1);
  click(*editor, 1);

  FrmAmrPar dialog;
  QObject::connect(&dialog, &FrmAmrPar::typeChosen, editor.get(), &FrmArmour::addDamageType);
  dialog.show();
  const auto push = [&](const char* name) { dialog.findChild<QPushButton*>(name)->click(); };
  auto& types = *dialog.findChild<InPlaceTable*>("LV");
  EXPECT_EQ(types.rowCount(), 30);
  push("CmdAdd");
  EXPECT_EQ(rows(*editor).size(), 2) << "nothing was selected";

  types.selectRow(4);
  push("CmdAdd");
  EXPECT_EQ(rows(*editor), (QStringList{"DEFAULT|100%", "SMALL_ARMS|25%", "GATTLING|"}));
  EXPECT_FALSE(table(*editor).row(2).redAndBold);
  push("CmdOK");
  EXPECT_EQ(rows(*editor).size(), 4);
  EXPECT_FALSE(dialog.isVisible());
}

}  // namespace
}  // namespace korvane
