// SPDX-License-Identifier: GPL-3.0-or-later
#include <QTreeView>

#include <memory>
#include <optional>

#include "BarePass.h"
#include "ProgramJobs.h"
#include "Windows.h"
#include "catalogue/ObjectTreeBuilder.h"
#include "mainwindow/FrmEdit.h"
#include "startup/Program.h"

namespace korvane {

namespace {

constexpr std::string_view kLargestRelative = "Object\\FactionUnit.ini";
constexpr std::size_t kClicked = 16;  // objects, one after the other
constexpr int kReadsOfAnObjectsFile = 10;

// Nodes of the objects in the largest file, spread over all of it.
std::vector<QPersistentModelIndex> SomeObjects(const ObjectTreeModel& model) {
  std::vector<QPersistentModelIndex> all;
  const auto walk = [&](const auto& self, const QModelIndex& parent) -> void {
    for (int row = 0; row < model.rowCount(parent); ++row) {
      const QModelIndex child = model.index(row, 0, parent);
      const ObjectNode& node = *model.node(child);
      if (IsObjectNode(node) && node.tag == kLargestFile) all.emplace_back(child);
      self(self, child);
    }
  };
  walk(walk, {});
  std::vector<QPersistentModelIndex> some;
  for (std::size_t i = 0; i < kClicked; ++i) some.push_back(all.at(i * all.size() / kClicked));
  return some;
}

Paths ReadByAClick(const BenchFolders& folders) {
  Paths files(kReadsOfAnObjectsFile, folders.objects(kLargestFile));
  for (const char* name : {"Weapon.ini", "Locomotor.ini", "Locomotor.ini", "Armor.ini"})
    files.push_back(folders.ini(name));
  return files;
}

Job ObjectTextJob(const RunningProgram& running) {
  SParse& parser = running.program.mainWindow().parser();
  return {.name = "object text, largest file",
          .promise = {.ratio = 2, .growth = true},
          .run =
              [&parser] {
                parser.ObjectName = "AmericaVehicle00100";
                if (parser.GetObjectText("Object", kLargestRelative).empty())
                  throw std::runtime_error("the object was not found");
              },
          .bare = BareRead({running.folders.objects(kLargestFile)})};
}

struct BuiltTree {
  std::optional<ObjectTreeModel> model;
  QTreeView view;
};

void Build(BuiltTree& tree, const Services& services) {
  ObjectTreeBuilder builder([&tree](const TreeEntry& entry) { return tree.model->addNode(entry); },
                            [&services] { services.yield.perLine(); });
  builder.BuildObjectTree(
      services.folders.game.toStdString(), [](double) {}, [&services] { services.yield.fullTurn(); });
  Settle();
}

Job TreeJob(const RunningProgram& running) {
  const auto tree = std::make_shared<BuiltTree>();
  tree->view.setUniformRowHeights(true);
  return {.name = "tree build",
          .promise = {.ratio = 10, .growth = true},
          .run = [tree, &desk = running.desk] { Build(*tree, desk.services); },
          .bare = BareRead(running.folders.objectFiles()),
          .prepare =
              [tree] {
                tree->model.emplace();
                tree->view.setModel(&*tree->model);
                tree->view.show();
                Settle();
              }};
}

Job ClickJob(const RunningProgram& running) {
  const auto objects = std::make_shared<std::vector<QPersistentModelIndex>>(
      SomeObjects(running.program.mainWindow().objects()));
  const auto next = std::make_shared<std::size_t>(0);
  return {.name = "object click",
          .promise = {.ratio = 4, .time = 100, .gap = 16, .memory = 150, .growth = true},
          .run = [=] { ReleaseOn(Child<QTreeView>("FrmEdit", "TVMenu"), objects->at(*next)); },
          .bare = BareRead(ReadByAClick(running.folders)),
          .prepare =
              [=] {
                *next = (*next + 1) % objects->size();
                PressOn(Child<QTreeView>("FrmEdit", "TVMenu"), objects->at(*next));
              }};
}

}  // namespace

Jobs ReadingJobs(const RunningProgram& running) {
  return {ObjectTextJob(running), TreeJob(running), ClickJob(running)};
}

}  // namespace korvane
