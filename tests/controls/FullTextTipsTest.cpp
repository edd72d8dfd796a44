// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTabBar>
#include <QTest>
#include <QToolTip>
#include <QTreeWidget>

#include <functional>
#include <memory>
#include <vector>

#include "controls/FullTextTips.h"

namespace korvane {
namespace {

const QString kLong = "A name that is much too long for the place it gets";

struct Case {
  const char* what;
  std::function<QWidget*(const QString& text)> make;
};

// Where the pointer is, in the widget that gets the event.
QWidget* Pointed(QWidget& widget) {
  auto* view = qobject_cast<QAbstractItemView*>(&widget);
  return view == nullptr ? &widget : view->viewport();
}

const std::vector<Case> kCases = {
    {"field", [](const QString& text) -> QWidget* { return new QLineEdit(text); }},
    {"drop-down list",
     [](const QString& text) -> QWidget* {
       auto* list = new QComboBox;
       list->addItem(text);
       return list;
     }},
    {"label", [](const QString& text) -> QWidget* { return new QLabel(text); }},
    {"button", [](const QString& text) -> QWidget* { return new QPushButton("&" + text); }},
    {"tab",
     [](const QString& text) -> QWidget* {
       auto* tabs = new QTabBar;
       tabs->setUsesScrollButtons(false);
       tabs->addTab(text);
       return tabs;
     }},
    {"list entry",
     [](const QString& text) -> QWidget* {
       auto* list = new QListWidget;
       list->addItem(text);
       return list;
     }},
    {"tree entry",
     [](const QString& text) -> QWidget* {
       auto* tree = new QTreeWidget;
       tree->setHeaderHidden(true);
       tree->addTopLevelItem(new QTreeWidgetItem({text}));
       return tree;
     }},
};

TEST(FullTextTips, WhatIsCutIsToldWholeAndNothingElse) {
  for (const Case& c : kCases) {
    for (const int width : {110, 900}) {
      for (const QString& text : {QString("Hut"), kLong}) {
        const std::unique_ptr<QWidget> widget(c.make(text));
        widget->setMinimumWidth(1);
        widget->resize(width, 100);
        widget->show();
        QApplication::processEvents();
        const bool cut = width == 110 && text == kLong;
        const QPoint at =
            qobject_cast<QAbstractItemView*>(widget.get()) != nullptr ? QPoint(40, 5) : QPoint(40, 12);
        EXPECT_EQ(CutTextAt(*Pointed(*widget), at), cut ? text : QString()) << c.what << ' ' << width;
      }
    }
  }
}

TEST(FullTextTips, AnEntryThatStandsForMoreTellsItAndMarkupIsNoMarkup) {
  QComboBox list;
  list.addItem("VETERAN");
  EXPECT_EQ(CutTextAt(list, {5, 5}), QString());
  list.setItemData(0, "UPGRADE VETERAN", Qt::ToolTipRole);
  EXPECT_EQ(CutTextAt(list, {5, 5}), "UPGRADE VETERAN");

  FullTextTips::install();
  QLineEdit field("<b>bold</b> and a long tail behind it");
  field.setToolTip("Not saved");
  field.resize(60, 24);
  field.show();
  QHelpEvent event(QEvent::ToolTip, {5, 5}, field.mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(&field, &event);
  EXPECT_TRUE(QToolTip::text().contains("&lt;b&gt;bold")) << qPrintable(QToolTip::text());
  EXPECT_TRUE(QToolTip::text().contains("Not saved"));
}

}  // namespace
}  // namespace korvane
