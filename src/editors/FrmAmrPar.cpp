// SPDX-License-Identifier: GPL-3.0-or-later
#include "editors/FrmAmrPar.h"

#include <QHBoxLayout>
#include <QPushButton>
#include <QVBoxLayout>

#include "controls/Icons.h"
#include "controls/InPlaceTable.h"
#include "controls/Named.h"

namespace korvane {

namespace {

constexpr int kColumnTwips = 3440;
constexpr int kFontPoints = 10;
constexpr int kHeight = 360;  // pixels

constexpr const char* kOfferedTypes[] = {"EXPLOSION",
                                         "CRUSH",
                                         "ARMOR_PIERCING",
                                         "SMALL_ARMS",
                                         "GATTLING",
                                         "RADIATION",
                                         "FLAME",
                                         "LASER",
                                         "SNIPER",
                                         "POISON",
                                         "HEALING",
                                         "UNRESISTABLE",
                                         "WATER",
                                         "DEPLOY",
                                         "SURRENDER",
                                         "HACK",
                                         "KILL_PILOT",
                                         "PENALTY",
                                         "FALLING",
                                         "MELEE",
                                         "DISARM",
                                         "HAZARD_CLEANUP",
                                         "INFANTRY_MISSILE",
                                         "AURORA_BOMB",
                                         "LAND_MINE",
                                         "JET_MISSILES",
                                         "STEALTHJET_MISSILES",
                                         "MOLOTOV_COCKTAIL",
                                         "COMANCHE_VULCAN",
                                         "FLESHY_SNIPER"};

InPlaceTable* MakeTypeList(QWidget* parent) {
  auto* list = Named("LV", new InPlaceTable(parent));
  list->setAccessibleName("Damage types");
  list->setFontSize(kFontPoints);
  list->hideHeaders();
  list->addColumn({}, kColumnTwips);
  for (const char* type : kOfferedTypes) list->addRow(type);
  const int scrollBar = list->style()->pixelMetric(QStyle::PM_ScrollBarExtent, nullptr, list);
  list->setMinimumWidth(list->columnWidth(0) + scrollBar + 2 * list->frameWidth());
  return list;
}

QPushButton* AddButton(QVBoxLayout& buttons, const char* name, const char* caption) {
  auto* button = Named(name, new QPushButton(caption));
  buttons.addWidget(button);
  return button;
}

}  // namespace

FrmAmrPar::FrmAmrPar(QWidget* parent) : ToolDialog(parent, nullptr), LV_(MakeTypeList(this)) {
  setObjectName("FrmAmrPar");
  setWindowTitle("Insert Parameter");
  setWindowIcon(ApplicationIcon());
  auto* buttons = new QVBoxLayout;
  connect(AddButton(*buttons, "CmdAdd", "&Add"), &QPushButton::clicked, this, &FrmAmrPar::add);
  QPushButton* ok = AddButton(*buttons, "CmdOK", "&OK");
  ok->setDefault(true);
  connect(ok, &QPushButton::clicked, this, [this] {
    const WindowCalls::Running call(calls_);
    add();
    close();
  });
  connect(AddButton(*buttons, "CmdCancel", "&Cancel"), &QPushButton::clicked, this, &FrmAmrPar::close);
  buttons->addStretch();
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(LV_, 1);
  layout->addLayout(buttons);
  resize(sizeHint().width(), kHeight);
}

// The armour editor may have to read its file for it, in which the user can close this window.
void FrmAmrPar::add() {
  const WindowCalls::Running call(calls_);
  if (const auto* type = LV_->selectedRow()) Q_EMIT typeChosen(QString(type->caption));
}

}  // namespace korvane
