// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QAbstractItemModel>
#include <QIcon>
#include <QTimer>

#include <chrono>
#include <memory>
#include <vector>

#include "controls/FolderPlaces.h"
#include "controls/ScreenReaders.h"

namespace korvane {

// Folders of the real file system, the hidden ones dimmed and after the others. A folder is read when it is
// looked at, a few milliseconds at a time, so that one with very many entries never holds up the windows. One
// that cannot be read has no folders in it.
class FolderModel : public QAbstractItemModel {
  Q_OBJECT

 public:
  enum Role {
    PathRole = Qt::UserRole,  // the program's path text of the folder
    GameRole,                 // true when the game's program lies in the folder, as far as it has been read
    NativePathRole            // the folder's path on this machine, with slashes
  };

  // `slice`: how long it reads before it lets events run; at least one entry per turn.
  explicit FolderModel(QList<FolderPlace> places, QObject* parent = nullptr,
                       std::chrono::milliseconds slice = std::chrono::milliseconds(5));
  ~FolderModel() override;

  // Begins to read the folder, unless it has been read already.
  void look(const QModelIndex& index);
  bool isRead(const QModelIndex& index) const;
  // The folder of that name in one that has been read; invalid where there is none.
  QModelIndex child(const QModelIndex& parent, const QString& name) const;
  // Drops what was read, so that the next look shows the folder as it is then.
  void forget(const QModelIndex& index);

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& index) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex&) const override { return 1; }
  bool hasChildren(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int, Qt::Orientation orientation, int role) const override {
    return UnseenHeading("Folders", orientation, role);
  }

 Q_SIGNALS:
  // Everything that was looked at has been read.
  void settled();

 private:
  struct Folder;
  struct Scan;

  Folder& at(const QModelIndex& index) const;
  QString nativePath(const Folder& folder) const;
  QString path(const Folder& folder) const;
  static QString description(const Folder& folder);
  QIcon icon(const Folder& folder) const;
  void readOn();
  void readStep();
  bool advance(Scan& scan) const;
  void finish(Scan scan);
  void insert(const QModelIndex& index, QStringList names, bool hidden);

  QList<FolderPlace> places_;
  std::chrono::milliseconds slice_;
  QIcon folderIcon_;
  QIcon gameFolderIcon_;
  std::unique_ptr<Folder> root_;
  std::vector<Scan> scans_;  // the last one is read first: it is what the user sees now
  QTimer timer_{this};
};

}  // namespace korvane
