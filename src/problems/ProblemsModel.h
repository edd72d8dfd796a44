// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <QString>

#include <array>
#include <vector>

#include "problems/DataCheck.h"

namespace korvane {

// What of the findings is shown, and how.
struct ProblemsView {
  enum class Grouping { file, code };

  Grouping grouping = Grouping::file;
  std::array<bool, 3> levels{true, true, true};  // by Level
  QString filter{};                              // a part of text, file or code, in any letter case
};

// The findings of a check as a tree: groups with their findings below.
class ProblemsModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  enum Column { text, file, line };
  static constexpr int titleRole = Qt::UserRole;  // of a group, without its count

  using QAbstractItemModel::QAbstractItemModel;

  void show(DataCheck::ResultPtr result, const ProblemsView& view);

  // nullptr for a group.
  const Finding* finding(const QModelIndex& index) const;
  // Where the finding is shown: the one with the same file, code and text that is nearest to its line. Not
  // valid when there is none.
  QModelIndex indexOf(const Finding& finding) const;
  // How many findings are shown.
  int shown() const;
  // How many findings are shown before this one, and the one that has so many before it.
  int findingsBefore(const QModelIndex& finding) const;
  QModelIndex findingBehind(int count) const;

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& = {}) const override { return 3; }
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  struct Group {
    QString title;
    std::vector<const Finding*> findings;
  };

  void group(const ProblemsView& view);
  QVariant groupData(const Group& group, const QModelIndex& index, int role) const;

  DataCheck::ResultPtr result_;
  std::vector<Group> groups_;
};

// The path of a finding's file as the program writes paths, below the game folder.
QString FilePathOf(const Finding& finding);
// The finding as compilers print one: "Data/INI/Weapon.ini:12:3: error: text [code]".
QString LineOf(const Finding& finding);
QString IconNameOf(Level level);

}  // namespace korvane
