// SPDX-License-Identifier: GPL-3.0-or-later
#include "about/frmAbout.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include "about/SysInfo.h"
#include "controls/Icons.h"
#include "controls/Named.h"
#include "platform/MessageBoxes.h"
#include "platform/Version.h"

namespace korvane {

namespace {

constexpr int kIconSize = 64;
constexpr int kGap = 16;
constexpr int kTextWidth = 66;  // in average characters: lines that are pleasant to read
constexpr qreal kTitleScale = 1.4;

const QString kDescription = QStringLiteral(
    "Command And Conquer Generals is a exciting and fun game, but no-one has bothered to make a decent "
    "editor for the game. This software will speed up editing units and buildings. When this software "
    "is finished, you will be able to make a unit or a building in less than 5 minutes with a easy to "
    "use wizard. (That will be in Version 2.0)");

const QString kLegalNotice = QStringLiteral(
    "Korvane is free software under the GNU General Public License, version 3 or later, and comes "
    "without any warranty. It is an independent project: it is not made, endorsed or supported by EA or "
    "by anyone who made the game. The names of the game and of its maker belong to their owners and are "
    "used here only to say which files this program edits.");

QString VersionText() {
  return QStringLiteral("Version %1.%2.%3").arg(kMajorVersion).arg(kMinorVersion).arg(kRevision);
}

QLabel* AddLabel(QBoxLayout& layout, const char* name, const QString& text) {
  auto* label = Named(name, new QLabel(text));
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  layout.addWidget(label);
  return label;
}

}  // namespace

frmAbout::frmAbout(SettingsStore& store, MessageBoxes& messages, const Registry& registry, Programs& programs,
                   QWidget* parent)
    : ToolDialog(parent, &store), messages_(messages), registry_(registry), programs_(programs) {
  setObjectName("frmAbout");
  setWindowTitle("About " + ApplicationTitle());
  setWindowIcon(ApplicationIcon());
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(textPart());
  layout->addWidget(buttonPart());
  layout->setSizeConstraint(QLayout::SetFixedSize);
  addHiddenMenu();
}

QWidget* frmAbout::textPart() {
  auto* part = new QWidget;
  auto* layout = new QHBoxLayout(part);
  layout->setSpacing(kGap);
  auto* icon = Named("picIcon", new QLabel);
  icon->setAccessibleName("Icon");
  icon->setPixmap(windowIcon().pixmap(QSize(kIconSize, kIconSize), devicePixelRatioF()));
  layout->addWidget(icon, 0, Qt::AlignTop);

  auto* texts = new QVBoxLayout;
  layout->addLayout(texts, 1);
  QLabel* title = AddLabel(*texts, "lblTitle", ApplicationTitle());
  QFont font = title->font();
  font.setPointSizeF(font.pointSizeF() * kTitleScale);
  font.setBold(true);
  title->setFont(font);
  AddLabel(*texts, "lblVersion", VersionText());
  AddLabel(*texts, "lblDescription", kDescription);
  AddLabel(*texts, "lblDisclaimer", kLegalNotice);
  part->setFixedWidth(fontMetrics().averageCharWidth() * kTextWidth + kIconSize);
  return part;
}

QWidget* frmAbout::buttonPart() {
  auto* part = new QWidget;
  auto* layout = new QHBoxLayout(part);
  auto* systemInformation = Named("cmdSysInfo", new QPushButton("&System Info..."));
  systemInformation->setAutoDefault(false);
  auto* ok = Named("CmdOK", new QPushButton("&OK"));
  ok->setDefault(true);
  ok->setFocus();
  layout->addWidget(systemInformation);
  layout->addStretch();
  layout->addWidget(ok);
  connect(systemInformation, &QPushButton::clicked, this, &frmAbout::StartSysInfo);
  connect(ok, &QPushButton::clicked, this, &QWidget::close);
  return part;
}

// The entry works by its key alone; there is no menu bar.
void frmAbout::addHiddenMenu() {
  auto* menu = Named("MnuFile", new QMenu("File", this));
  QAction* extras = menu->addAction("Fun");
  extras->setObjectName("MnuFun");
  extras->setShortcut(Qt::Key_F2);
  addAction(extras);
  connect(extras, &QAction::triggered, this, &frmAbout::extrasRequested);
}

void frmAbout::StartSysInfo() {
  if (StartSystemInformation(registry_, programs_)) return;
  messages_.show({.text = QStringLiteral("System Information Is Unavailable At This Time")}, this);
}

}  // namespace korvane
