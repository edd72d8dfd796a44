// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QTableView>

#include "controls/InPlaceTableModel.h"
#include "ini/TableSink.h"

namespace korvane {

// A table of captions and values that can be edited in place. What the user types is shown and nothing more:
// it is lost at the next fill.
//
// A fill goes from clearRows to finish(); until then the rows of the fill before it are seen.
class InPlaceTable : public QTableView, public TableSink {
  Q_OBJECT

 public:
  explicit InPlaceTable(QWidget* parent = nullptr);

  // The last column takes the width that is left.
  void addColumn(const QString& caption, int widthTwips);
  // Lets the user edit the values, each as its kind allows; mode 0: none, as in a new table.
  void setUp(int mode);
  void hideHeaders();
  void setFontSize(int points);

  // Texts are the files' bytes.
  void clearRows() override { model_.clear(); }
  void prepare() override {}
  void addCell(std::string_view text, int column, EditKind kind = EditKind::none) override;
  void addChoices(ChoiceList choices) override { model_.setChoices(std::move(choices)); }

  // The same from texts of the program's own.
  void addRow(const QString& caption) { model_.addRow(caption); }
  void setValue(const QString& text, EditKind kind = EditKind::none) { model_.setValue(text, kind); }

  void setAllCaptionsRedAndBold() { model_.markCaptions(); }
  // Shows the rows collected since clearRows.
  void finish();

  // The rows collected so far while a fill runs, else the rows that are seen.
  int rowCount() const { return static_cast<int>(model_.rows().size()); }
  const InPlaceTableModel::Row& row(int number) const {
    return model_.rows().at(static_cast<std::size_t>(number));
  }
  // Some value is not what the last fill put there, or the user inserted a row.
  bool hasTyped() const { return model_.hasTyped(); }
  // The user inserted a row.
  bool hasInserted() const { return model_.hasInserted(); }
  // A cell is being typed into.
  bool isEditing() const { return state() == EditingState; }
  // What the row shows counts as what the fill put there.
  void takeAsRead(int row) { model_.takeAsRead(row); }

  // Keeps what is selected and in sight while an object lives, whatever is filled in meanwhile. A row is
  // known by its caption.
  class KeptPlace {
   public:
    explicit KeptPlace(InPlaceTable& table);
    ~KeptPlace();
    KeptPlace(const KeptPlace&) = delete;
    KeptPlace& operator=(const KeptPlace&) = delete;

   private:
    InPlaceTable& table_;
    QString caption_;
    int before_ = 0;  // rows above it with the same caption
    int column_ = -1;
    bool selected_ = false;
    QPoint scrolled_;
  };

  // The selected row, or nothing; good until the next fill.
  const InPlaceTableModel::Row* selectedRow() const;

 Q_SIGNALS:
  // hasTyped may give something else now.
  void typedChanged();

 protected:
  bool edit(const QModelIndex& cell, EditTrigger trigger, QEvent* event) override;
  void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
  void changeEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void fitColumns();
  void fitRows();
  // How many rows above this one have its caption, and the row that this is true of; -1.
  int sameBefore(int row) const;
  int rowOf(const QString& caption, int before) const;
  int rowHeightFor(int row) const;
  // The nearest value after (step 1) or before (step -1) the row that can be edited.
  QModelIndex nextEditable(int row, int step) const;

  InPlaceTableModel model_;
  int columnsWidth_ = 0;  // as asked for, in pixels
};

}  // namespace korvane
