// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractTableModel>
#include <QStringList>

#include <optional>
#include <vector>

#include "ini/TableSink.h"

namespace korvane {

// The rows of an in-place table. From clear() to show() rows are only collected: views see the old rows until
// the new ones are complete, and are told once. Outside of that a new row is seen at once.
class InPlaceTableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  struct Row {
    QString caption{};
    QString value{};
    EditKind kind = EditKind::none;
    ChoiceList choices{};
    bool redAndBold = false;        // the caption
    std::optional<QString> read{};  // the value before the user typed another one
  };

  static constexpr int kCaption = 0;
  static constexpr int kValue = 1;

  using QAbstractTableModel::QAbstractTableModel;

  void addColumn(const QString& caption);

  void clear();
  void addRow(const QString& caption);
  // The next three are about the newest row, or about all of the rows being collected.
  void setValue(const QString& text, EditKind kind);
  void setChoices(ChoiceList choices);
  void markCaptions();
  void show();
  // A value that was typed into a shown row counts as read.
  void takeAsRead(int row);

  // The rows being collected, or else those that are seen.
  const std::vector<Row>& rows() const { return collecting_ ? next_ : shown_; }
  const Row& shownRow(int row) const { return shown_[static_cast<std::size_t>(row)]; }
  // Some value is not what was read, or the user inserted a row.
  bool hasTyped() const;
  bool hasInserted() const { return inserted_; }
  // A row that stands for a line.
  bool isSeparator(int row) const;
  // A cell whose text the user can change.
  bool isEditable(const QModelIndex& cell) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& cell, int role = Qt::DisplayRole) const override;
  bool setData(const QModelIndex& cell, const QVariant& text, int role = Qt::EditRole) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role = Qt::DisplayRole) const override;
  Qt::ItemFlags flags(const QModelIndex& cell) const override;

 Q_SIGNALS:
  // hasTyped may give something else now.
  void typedChanged();

 private:
  std::vector<Row>& rows() { return collecting_ ? next_ : shown_; }
  void newestChanged();

  QStringList columns_;
  std::vector<Row> shown_;
  std::vector<Row> next_;
  bool collecting_ = false;
  bool inserted_ = false;  // a row that was shown after the fill
};

}  // namespace korvane
