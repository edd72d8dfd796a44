// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <gtest/gtest.h>

#include <QAction>
#include <QListView>
#include <QTest>

#include <memory>

#include "app/UnitChoices.h"
#include "editors/TableEditor.h"
#include "support/TestDesk.h"

namespace korvane {

class FakeUnits : public UnitChoices {
 public:
  QStringList weaponNames() const override { return weapons; }
  bool armourChosen() const override { return chosen; }
  QStringList weapons;
  bool chosen = false;
};

// What a table editor needs around it. Reads let events run at every line.
class EditorDesk : public testing::Test, protected TestDesk {
 protected:
  template <typename Editor>
  std::unique_ptr<Editor> open() {
    auto editor = std::make_unique<Editor>(context);
    editor->load();
    editor->show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(editor.get()));
    return editor;
  }

  static QListView& list(const TableEditor& editor) { return *editor.findChild<QListView*>("LstWPN"); }
  static InPlaceTable& table(const TableEditor& editor) { return *editor.findChild<InPlaceTable*>("LVEdit"); }
  static void trigger(const TableEditor& editor, const char* action) {
    editor.findChild<QAction*>(action)->trigger();
  }

  static QStringList entries(const TableEditor& editor) {
    QStringList names;
    for (int row = 0; row < list(editor).model()->rowCount(); ++row)
      names << list(editor).model()->index(row, 0).data().toString();
    return names;
  }
  static QString selected(const TableEditor& editor) {
    const QModelIndexList indexes = list(editor).selectionModel()->selectedIndexes();
    return indexes.isEmpty() ? QString("none") : indexes.first().data().toString();
  }
  static void click(const TableEditor& editor, int row) {
    QListView& view = list(editor);
    const QRect entry = view.visualRect(view.model()->index(row, 0));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, entry.center());
  }
  // "caption|value" of every row.
  static QStringList rows(const TableEditor& editor) {
    QStringList texts;
    for (int row = 0; row < table(editor).rowCount(); ++row)
      texts << table(editor).row(row).caption + '|' + table(editor).row(row).value;
    return texts;
  }

  SParse parser{[this] { return game.path(); }, [this] { yield.fullTurn(); }};
  FakeLauncher launcher;
  FakeUnits units;
  TableEditorContext context{parser, services, launcher, units};
};

}  // namespace korvane
