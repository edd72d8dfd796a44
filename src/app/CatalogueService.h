// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>
#include <thread>

#include "catalogue/Catalogue.h"

namespace korvane {

struct Folders;

// The catalogue of names for the windows: read in a worker at the first need and kept fresh. Windows do not
// wait for it; they ask again when it says that it has changed.
class CatalogueService : public QObject {
  Q_OBJECT

 public:
  explicit CatalogueService(const Folders& folders);
  // Stops the worker and waits for it: at most the time of one file.
  ~CatalogueService() override;

  // The newest finished one; nullptr before the first. It never changes, so whoever holds it may go on
  // asking.
  const CataloguePtr& catalogue() const { return catalogue_; }
  // There is one, of the files and the further data that are wanted now.
  bool isCurrent() const { return catalogue_ != nullptr && catalogue_->sources() == sources(); }
  bool isReading() const { return worker_.joinable(); }

  // What the texts define that are edited and not saved, all but the one of this path below the game folder.
  using Unsaved = std::function<Catalogue::Files(const QString& besides)>;
  // Who knows them, as long as `owner` lives.
  void setUnsaved(const QObject& owner, Unsaved unsaved);
  // The catalogue with these in the place of the files; nullptr before the first one. Who has a text of its
  // own names its path, for which nothing is done then.
  CataloguePtr withUnsaved(const QString& besides = {}) const;

  // Looks which files have changed, and reads those. While that goes on, another wish waits for its end; a
  // reading of another folder is given up.
  void refresh();
  // The same at the first need only.
  void ensure();
  // The same when there has been a need already: the program has written files, or has another folder.
  void filesChanged();
  // Folders and archives behind the game folder, such as the original game's data.
  void setFurtherData(const QStringList& paths);
  // What the catalogue is made of.
  CatalogueSources sources() const;

 Q_SIGNALS:
  void changed();
  void progress(int done, int all);

 private:
  void start();
  void take(const CataloguePtr& read);

  const Folders& folders_;
  std::vector<std::string> further_;
  CataloguePtr catalogue_;
  QPointer<const QObject> unsavedOwner_;
  Unsaved unsaved_;
  CatalogueSources reading_;  // what the worker reads
  bool wanted_ = false;       // again, once the worker is done
  std::jthread worker_;
};

}  // namespace korvane
