// SPDX-License-Identifier: GPL-3.0-or-later
#include "about/FrmFun.h"

#include <QPushButton>
#include <QVBoxLayout>

#include "controls/Icons.h"

namespace korvane {

namespace {

struct Extra {
  const char* name;
  const char* caption;
};

constexpr Extra kExtras[] = {
    {"CmdHP", "&Hit Pingu"},
    {"CmdNC", "&Naughs and Crosses"},
    {"CmdLotto", "&Play The Lottery"},
};

constexpr int kWidth = 24;  // in average characters: the title is not cut

}  // namespace

FrmFun::FrmFun(SettingsStore& store, QWidget* parent) : ToolDialog(parent, &store) {
  setObjectName("FrmFun");
  setWindowTitle("Fun!");
  setWindowIcon(ApplicationIcon());
  auto* layout = new QVBoxLayout(this);
  for (const Extra& extra : kExtras) {
    auto* button = new QPushButton(extra.caption);
    button->setObjectName(extra.name);
    button->setAutoDefault(false);
    button->setMinimumWidth(fontMetrics().averageCharWidth() * kWidth);
    layout->addWidget(button);
  }
  layout->setSizeConstraint(QLayout::SetFixedSize);
}

}  // namespace korvane
