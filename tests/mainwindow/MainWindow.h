// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRegularExpression>
#include <QTabBar>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>

#include <memory>

#include "controls/InPlaceTable.h"
#include "controls/NoticeBar.h"
#include "mainwindow/FrmEdit.h"
#include "platform/TextEncoding.h"
#include "support/TestDesk.h"

namespace korvane {

// The main window on a small game folder with a handful of objects, driven as a user would.
class MainWindow : public testing::Test, protected TestDesk {
 protected:
  void SetUp() override {
    game.objects("FactionUnit.ini", kUnits);
    game.ini("Weapon.ini", "Weapon Gun\nEnd\nWeapon Rocket\nEnd\nWeapon  Odd\nEnd\n");
    game.ini("Armor.ini", "Armor Plate\nEnd\nArmorSet Steel\nEnd\n");
    game.ini(
        "Locomotor.ini",
        "Locomotor Wheels\n  Surfaces = GROUND\n  Speed = 40\n  SpeedDamaged = 22.5\n  TurnRate = -90\nEnd\n"
        "Locomotor Tracks\n  Speed = 15\n  Braking = 123456\nEnd\n");
  }

  void open() {
    window = std::make_unique<FrmEdit>(services, launcher);
    ObjectTreeModel& tree = window->objects();
    addGroup("FactionUnit.ini", "Player Units", "");
    addGroup("FUOther", "Other", "FactionUnit.ini");
    for (const char* name : {"Jeep", "Hut", "Ghost"}) addObject(name, "FUOther", "FactionUnit.ini");
    tree.addNode({"Gone.ini", "Gone", "", ""});
    tree.addNode({"GOther", "Other", "Gone.ini", ""});
    addObject("Lost", "GOther", "Gone.ini");
    window->show();
    window->prepareInformationList();
    window->readWeapons();
    get<QTreeView>("TVMenu").expandAll();
    launcher.takeCalls();
  }

  void addGroup(const char* key, const char* text, const char* parent) {
    window->objects().addNode(
        {key, text, parent, "FactionUnit.ini", NodeKind::group, "Object\\FactionUnit.ini"});
  }
  void addObject(const std::string& name, const char* group, const std::string& file) {
    window->objects().addNode({"Key" + name, name, group, file, NodeKind::object, "Object\\" + file});
  }

  template <typename Widget>
  Widget& get(const char* name) const {
    auto* found = window->findChild<Widget*>(name);
    if (found == nullptr) throw std::runtime_error(name);
    return *found;
  }
  QString text(const char* field) const { return get<QLineEdit>(field).text(); }
  QString chosen(const char* list) const { return get<QComboBox>(list).currentText(); }
  QString panel(int number) const { return get<QLabel>(qPrintable(QString("Panel%1").arg(number))).text(); }
  QString handling(int i) const {
    return get<QLineEdit>(qPrintable(QString("HS_TextBox%1").arg(i))).displayText();
  }

  QModelIndex node(const QString& name) const {
    const QAbstractItemModel& model = window->objects();
    return model.match(model.index(0, 0), Qt::DisplayRole, name, 1, Qt::MatchExactly | Qt::MatchRecursive)
        .value(0);
  }
  void click(const QString& name) {
    QTreeView& tree = get<QTreeView>("TVMenu");
    tree.scrollTo(node(name));
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualRect(node(name)).center());
  }
  // The user picks an entry of a list.
  void choose(const char* list, int index) {
    auto& combo = get<QComboBox>(list);
    combo.setCurrentIndex(index);
    Q_EMIT combo.activated(index);
    Q_EMIT combo.textActivated(combo.currentText());
  }
  void press(const char* button) { get<QPushButton>(button).click(); }

  // Those about an object come in the turn of the event loop behind its click.
  QStringList notices() const {
    QApplication::processEvents();
    return get<NoticeBar>("NoticeBar").sentences();
  }
  // The user clicks the link with this caption in the sentence of that number.
  void followNotice(int sentence, const QString& caption) const {
    auto* label = get<NoticeBar>("NoticeBar").findChildren<QLabel*>("Notice").at(sentence);
    const auto link =
        QRegularExpression("href=\"(\\d+)\">" + QRegularExpression::escape(caption)).match(label->text());
    ASSERT_TRUE(link.hasMatch()) << qPrintable(label->text());
    Q_EMIT label->linkActivated(link.captured(1));
    QApplication::processEvents();
  }

  // "label|value" of every row of the information list; separators as "-".
  QStringList information() const {
    QStringList rows;
    const auto& list = get<InPlaceTable>("LstInfo");
    for (int i = 0; i < list.rowCount(); ++i) {
      const auto& row = list.row(i);
      rows += row.caption == FromBytes(kSeparatorCaption) ? "-" : row.caption + '|' + row.value;
    }
    return rows;
  }
  QString informationOf(const QString& label) const {
    for (const QString& row : information()) {
      if (row.startsWith(label + '|')) return row.mid(label.size() + 1);
    }
    return "no row";
  }

  static constexpr std::string_view kUnits =
      "Object Jeep\n"
      "  MaxHealth = 240.0 ; strong\n  InitialHealth = 200\n  MaxHealth = 5\n"
      "  BuildCost = 1500\n  BuildTime = 8.5\n  VisionRange = 150\n  ShroudClearingRange = 300\n"
      "  ArmorSet\n    Armor = Plate\n  End\n"
      "  WeaponSet\n    Conditions = None\n    Weapon = PRIMARY Gun\n    Weapon = SECONDARY Rocket\n  End\n"
      "  WeaponSet\n    Conditions = PLAYER_UPGRADE\n    Weapon = PRIMARY Rocket\n    "
      "WeaponLockSharedAcrossSets = Yes\n"
      "    Weapon = SECONDARY Gun\n  End\n"
      "  Locomotor = SET_NORMAL Wheels\n  Locomotor = SET_FAST Tracks\n"
      "End\n"
      "Object Hut\n  MaxHealth = 900\nEnd\n";

  FakeLauncher launcher;
  std::unique_ptr<FrmEdit> window;
};

}  // namespace korvane
