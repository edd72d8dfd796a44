// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/ResStrings.h"

#include <QAction>
#include <QHeaderView>
#include <QMenu>
#include <QTabBar>
#include <QTreeWidget>

#include <optional>

namespace korvane {

namespace {

struct ResEntry {
  int id;
  const char16_t* text;
};

constexpr ResEntry kStrings[] = {
    {10, u"Wizard Template"},
    {100, u"Help"},
    {101, u"Cancel"},
    {102, u"< &Back"},
    {103, u"&Next >"},
    {104, u"&Finish"},
    {1000, u"Introduction"},
    {1001,
     u"The Command And Conquer Generals\u00ae Korvane Setup Wizard will help you to setup the editor. Since "
     u"this is the first time that you have ran the editor, You will need to set-up the editor before you "
     u"use it. Once you have completed this wizard, it will not appear again."},
    {2000, u"Step 1"},
    {2001, u"To complete the wizard, You must specify the path of Command And Conquer Generals\u00ae."},
    {2002, u"Step 2"},
    {2003, u"The wizard is now copying and verifying your files."},
    {3000, u"Finished!"},
    {3001, u"The Setup Wizard is finished setting up the editor.\r\n\r\n_"},
    {3002, u"To use the editor, press Finish!"},
};

std::optional<int> IdOf(const QVariant& value) {
  bool isNumber = false;
  const int id = value.toString().trimmed().toInt(&isNumber);
  return isNumber ? std::optional(id) : std::nullopt;
}

void LoadTooltip(QWidget& control) {
  if (const auto id = IdOf(control.toolTip())) control.setToolTip(ResString(*id));
}

void LoadMenu(const QMenu& menu) {
  for (QAction* entry : menu.actions()) {
    if (const auto id = IdOf(entry->text())) entry->setText(ResString(*id));
  }
}

void LoadTabs(QTabBar& tabs) {
  for (int i = 0; i < tabs.count(); ++i) {
    if (const auto id = IdOf(tabs.tabData(i))) tabs.setTabText(i, ResString(*id));
    if (const auto id = IdOf(tabs.tabToolTip(i))) tabs.setTabToolTip(i, ResString(*id));
  }
}

// The tag of a column is the user data of its header.
void LoadColumns(const QTreeWidget& list) {
  QTreeWidgetItem* header = list.headerItem();
  for (int i = 0; i < list.columnCount(); ++i) {
    if (const auto id = IdOf(header->data(i, Qt::UserRole))) header->setText(i, ResString(*id));
  }
}

// A group box has its caption as title, labels and buttons have it as text.
void LoadCaption(QWidget& control) {
  const auto id = IdOf(control.property(kTag));
  if (!id) return;
  const bool titled = control.metaObject()->indexOfProperty("title") >= 0;
  control.setProperty(titled ? "title" : "text", GetResString(*id));
}

void LoadControl(QWidget& control) {
  if (auto* menu = qobject_cast<QMenu*>(&control)) return LoadMenu(*menu);
  if (auto* tabs = qobject_cast<QTabBar*>(&control)) return LoadTabs(*tabs);
  if (auto* list = qobject_cast<QTreeWidget*>(&control)) return LoadColumns(*list);
  LoadTooltip(control);  // a toolbar's buttons are controls too
  LoadCaption(control);
}

}  // namespace

QString ResString(int id) {
  for (const ResEntry& entry : kStrings) {
    if (entry.id == id) return QString::fromUtf16(entry.text);
  }
  return {};
}

QString GetResString(int id) {
  QString joined = ResString(id);
  while (joined.endsWith('_')) {
    joined.chop(1);
    joined += ResString(++id);
  }
  return joined;
}

void LoadResStrings(QWidget& window) {
  if (const auto id = IdOf(window.property(kTag))) window.setWindowTitle(ResString(*id));
  for (QWidget* control : window.findChildren<QWidget*>()) LoadControl(*control);
}

}  // namespace korvane
