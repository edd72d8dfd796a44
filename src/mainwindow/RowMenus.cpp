// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/RowMenus.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QTreeView>

#include <array>

#include "controls/InPlaceTable.h"
#include "controls/MenuButton.h"
#include "mainwindow/LaunchCommands.h"
#include "mainwindow/ObjectTreeModel.h"

namespace korvane {

namespace {

using Row = Command<RowMenus>;

constexpr std::array kTreeCommands = {
    Row{"copyName", "&Copy Name", &RowMenus::copyNodeName, "Ctrl+C"},
    Row{"manualEdit", "&Manual Edit", &RowMenus::manualEdit},
};
constexpr std::array kListCommands = {
    Row{"copyRow", "&Copy", &RowMenus::copyRow, "Ctrl+C"},
    Row{"copyRowName", "Copy N&ame", &RowMenus::copyRowName},
    Row{"copyRowValue", "Copy &Value", &RowMenus::copyRowValue},
};

// Each may name commands of its own view, of the tree and of the window.
constexpr const char* kTreeMenu[] = {"copyName",       "",         "showInFile", "manualEdit", "",
                                     "goToDefinition", "findUses", "namesUsed"};
constexpr const char* kListMenu[] = {
    "copyRow", "copyRowName",    "copyRowValue", "",         "showInFile", "manualEdit",
    "",        "goToDefinition", "findUses",     "namesUsed"};

void Copy(const QString& text) {
  QGuiApplication::clipboard()->setText(text);
}

}  // namespace

RowMenus::RowMenus(QTreeView& tree, const ObjectTreeModel& model, InPlaceTable& list, LaunchCommands& launch,
                   const Commands& ofWindow)
    : tree_(tree),
      model_(model),
      list_(list),
      launch_(launch),
      ofTree_(tree, ofWindow),
      ofList_(list, ofTree_) {
  ofTree_.add<RowMenus>(kTreeCommands, *this);
  ofList_.add<RowMenus>(kListCommands, *this);
  makeMenu(tree, ofTree_, kTreeMenu).setObjectName("menuTree");
  makeMenu(list, ofList_, kListMenu).setObjectName("menuList");
}

QMenu& RowMenus::makeMenu(QAbstractItemView& view, const Commands& commands,
                          std::span<const char* const> rows) {
  auto* menu = new QMenu(&view);
  FillMenu(*menu, commands, rows);
  QObject::connect(new MenuButton(view), &MenuButton::asked, menu, [this, menu](const QPoint& at) {
    nameManualEdit();
    menu->popup(at);
  });
  return *menu;
}

// The selected node's file is what the command opens.
void RowMenus::nameManualEdit() {
  const ObjectNode* node = selectedNode();
  QString file = node == nullptr ? QString() : QString::fromStdString(node->tag);
  QAction& command = ofTree_.action("manualEdit");
  command.setEnabled(!file.isEmpty());
  command.setText(QString("&Manual Edit " + file.replace("&", "&&")).trimmed());
}

const ObjectNode* RowMenus::selectedNode() const {
  return model_.node(tree_.selectionModel()->selectedIndexes().value(0));
}

void RowMenus::manualEdit() {
  const ObjectNode* node = selectedNode();
  if (node == nullptr || node->tag.empty()) return;
  const bool isGroup = node->kind == NodeKind::group || node->kind == NodeKind::file;
  isGroup ? launch_.editObjectFile() : launch_.editObjectInFile();
}

void RowMenus::copyNodeName() {
  if (const ObjectNode* node = selectedNode()) Copy(ObjectTreeModel::shownText(*node));
}

// As spreadsheets take it.
void RowMenus::copyRow() {
  if (const auto* row = list_.selectedRow()) Copy(row->caption + u'\t' + row->value);
}

void RowMenus::copyRowName() {
  if (const auto* row = list_.selectedRow()) Copy(row->caption);
}

void RowMenus::copyRowValue() {
  if (const auto* row = list_.selectedRow()) Copy(row->value);
}

}  // namespace korvane
