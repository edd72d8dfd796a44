// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QMainWindow>
#include <QPersistentModelIndex>
#include <QStringList>
#include <QStringListModel>

#include <optional>
#include <string>
#include <vector>

#include "app/BlockNotices.h"
#include "app/Commands.h"
#include "app/NameSource.h"
#include "app/ReadingAgain.h"
#include "app/Services.h"
#include "app/ValueEdits.h"
#include "controls/InPlaceTable.h"
#include "editors/TableEditorEntry.h"
#include "platform/WindowCalls.h"

class QMenu;

namespace korvane {

class EditorLauncher;
class ListAndTable;
class NoticeBar;
class UnitChoices;

// What every table editor uses.
struct TableEditorContext {
  SParse& parser;
  const Services& services;
  EditorLauncher& launcher;
  const UnitChoices& units;
};

// A window that shows the entries of one game file, and the chosen one's parameters as a table. What is typed
// into the table is not stored; an entry is changed through the manual editor.
//
// Its reads let events run, and one guard holds for all windows: what the user asks for while the parser is
// taken is ignored.
class TableEditor : public QMainWindow, public NameSource {
  Q_OBJECT

 public:
  TableEditor(const TableEditorEntry& entry, const TableEditorContext& context);
  ~TableEditor() override;

  // Restores the placement and reads the list; nothing the second time. Events run meanwhile, so the owner
  // calls it only when it already knows the window.
  void load();

  // Selects the first entry from the top that begins with the name as a whole word, letter case ignored, or
  // none. The table stays as it is; the notice bar of some editors offers what to do next.
  void selectEntry(const QString& name);
  // The entry of this name, letter case ignored, as if it had been clicked. False when there is none.
  bool clickEntry(const QString& name);

  // A file of the game folder (the program's path) was saved: reads what the table shows of it again, as soon
  // as the parser is free. Offers that instead while something is typed.
  void fileSaved(const QString& file);

  std::optional<NameHere> nameHere() const override;
  std::optional<ItemPlace> placeHere() const override;

  Commands& commands() { return commands_; }

 Q_SIGNALS:
  // The window can go, see WindowCalls.
  void closedForGood();

 protected:
  // The names for the list, in the order in which they are added: those of the file's header lines.
  virtual QStringList readNames();
  // True when the entry that was added first is selected after loading.
  virtual bool selectsFirst() const { return true; }

  // What there is to say of the chosen entry beside what holds for every kind. `text`: its block as it was
  // read; `block`: where that stands in the file at the program's path.
  virtual std::vector<Notice> noticesOf(const std::string& text, const ShownBlock& block,
                                        const QString& file) const;

  InPlaceTable& table();
  const TableEditorContext& context() const { return context_; }

  void closeEvent(QCloseEvent* event) override;

 private:
  void makeMenus();
  void makeColumns();
  void fillList(QStringList names);
  void select(const QModelIndex& entry);
  void tellSought(const QString& name, const QModelIndex& found);
  std::optional<QString> selectedName() const;
  void tellOfNames();
  NameHere nameOf(const QString& entry) const;
  std::optional<NameHere> nameAt(const QModelIndex& cell) const;
  void showNamed(const QString& name);
  void showEntry(const QModelIndex& entry);
  void fillTable(const QString& name);
  bool readAgain();
  bool fillAgain();
  bool takeSavedAsRead();
  void tellTyped();
  ShownField shownField(const QString& name) const;
  ShownField shownField(int row) const;
  std::vector<TypedValue> typedValues() const;
  void editInFile();
  void showInFile();
  void tellAboutEntry(const QString& name, const std::string& text);
  void editInManualEditor();
  std::optional<std::string> readBlock(const QString& name);

  const TableEditorEntry& entry_;
  TableEditorContext context_;
  QStringListModel names_;
  ListAndTable* pane_;
  NoticeBar* notices_;
  Commands commands_{*this};
  QPersistentModelIndex settled_;  // the entry to go back to when a choice is refused
  std::optional<QString> shown_;   // the entry whose block the table shows
  bool loaded_ = false;
  ReadingAgain again_{[this] { return readAgain(); }};
  WindowCalls calls_{*this, [this] { Q_EMIT closedForGood(); }};
};

}  // namespace korvane
