// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>

#include <functional>
#include <vector>

class QLineEdit;

namespace korvane {

class NoticeBar;
class UnitFields;

// Marks the fields that hold something else than what was read into them, since nothing typed is ever stored.
class TypedMarks : public QObject {
 public:
  TypedMarks(UnitFields& fields, NoticeBar& bar);

  // While one lives, what comes into the fields is read, not typed. At its end these fields are as read.
  class Reading {
   public:
    Reading(TypedMarks& marks, std::vector<QLineEdit*> fields);
    ~Reading();
    Reading(const Reading&) = delete;
    Reading& operator=(const Reading&) = delete;

   private:
    TypedMarks& marks_;
    std::vector<QLineEdit*> fields_;
  };
  Reading readsAll();
  Reading readsArmour();
  Reading readsWeapons();
  Reading readsHandling();

  // A field that was typed into, and what stood there before.
  struct Typed {
    QLineEdit* field;
    QString before;
  };
  std::vector<Typed> typed() const;
  // What the field shows counts as read.
  void takeAsRead(const QLineEdit* field);
  // What was last read into a field of the marked ones.
  QString readText(const QLineEdit* field) const;

  // What the link "Edit in file" does; without it there is no link.
  void setEditInFile(std::function<void()> edit) { editInFile_ = std::move(edit); }

 private:
  struct Watched {
    QLineEdit* field;
    QString read;
    bool isTyped = false;
  };

  Watched& watched(const QLineEdit* field);
  void changed(const QLineEdit* field);
  void mark(Watched& field, bool isTyped);
  void tell();

  UnitFields& fields_;
  NoticeBar& bar_;
  std::function<void()> editInFile_;
  std::vector<Watched> watched_;
  int reading_ = 0;
};

}  // namespace korvane
