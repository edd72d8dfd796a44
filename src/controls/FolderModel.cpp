// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FolderModel.h"

#include <QApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QDirIterator>
#include <QFont>
#include <QPalette>

#include <algorithm>
#include <utility>

#include "controls/Icons.h"
#include "ini/DataFiles.h"

namespace korvane {

namespace {

QString Below(const QString& folder, QChar separator, const QString& name) {
  return folder.endsWith(separator) ? folder + name : folder + separator + name;
}

// A name with a line end or another control character must not tear the row apart.
QString Shown(QString name) {
  for (QChar& c : name) {
    if (c.category() == QChar::Other_Control) c = QChar::ReplacementCharacter;
  }
  return name;
}

bool IsGameProgram(const QString& name) {
  return name.compare(QLatin1String(kGameProgram.data()), Qt::CaseInsensitive) == 0;
}

QVariant Bold() {
  QFont font = QApplication::font("QTreeView");
  font.setBold(true);
  return font;
}

}  // namespace

struct FolderModel::Folder {
  enum class State { unread, waiting, read };

  Folder* parent = nullptr;
  int row = 0;
  QString name;
  State state = State::unread;
  bool holdsGame = false;
  bool hidden = false;
  std::vector<std::unique_ptr<Folder>> children;

  void add(const QString& childName, bool isHidden = false) {
    auto child = std::make_unique<Folder>();
    child->parent = this;
    child->row = static_cast<int>(children.size());
    child->name = childName;
    child->hidden = isHidden;
    children.push_back(std::move(child));
  }
};

struct FolderModel::Scan {
  QPersistentModelIndex folder;
  std::unique_ptr<QDirIterator> entries;
  QStringList names{};
  QStringList hiddenNames{};
  bool holdsGame = false;
};

FolderModel::FolderModel(QList<FolderPlace> places, QObject* parent, std::chrono::milliseconds slice)
    : QAbstractItemModel(parent),
      places_(std::move(places)),
      slice_(slice),
      folderIcon_(ThemeIcon("folder")),
      gameFolderIcon_(ThemeIcon("game-folder")),
      root_(std::make_unique<Folder>()) {
  root_->state = Folder::State::read;
  for (const FolderPlace& place : places_) root_->add(place.label);
  connect(&timer_, &QTimer::timeout, this, &FolderModel::readOn);
}

FolderModel::~FolderModel() = default;

void FolderModel::look(const QModelIndex& index) {
  Folder& folder = at(index);
  if (folder.state != Folder::State::unread) return;
  folder.state = Folder::State::waiting;
  scans_.push_back({index, nullptr});
  timer_.start(0);
}

void FolderModel::forget(const QModelIndex& index) {
  Folder& folder = at(index);
  if (folder.state != Folder::State::read) return;
  if (!folder.children.empty()) {
    beginRemoveRows(index, 0, static_cast<int>(folder.children.size()) - 1);
    folder.children.clear();
    endRemoveRows();
  }
  folder.state = Folder::State::unread;
}

void FolderModel::readOn() {
  const QDeadlineTimer slice(slice_);
  do readStep();
  while (!scans_.empty() && !slice.hasExpired());
  if (!scans_.empty()) return;
  timer_.stop();
  Q_EMIT settled();
}

// One entry of the folder that was asked for last.
void FolderModel::readStep() {
  if (scans_.empty() || advance(scans_.back())) return;
  Scan done = std::move(scans_.back());
  scans_.pop_back();
  if (done.folder.isValid()) finish(std::move(done));
}

// One entry further; false at the end of the folder, and where the folder is no longer in the tree.
bool FolderModel::advance(Scan& scan) const {
  if (!scan.folder.isValid()) return false;
  if (!scan.entries) {
    scan.entries = std::make_unique<QDirIterator>(
        nativePath(at(scan.folder)), QDir::Dirs | QDir::Files | QDir::Hidden | QDir::NoDotAndDotDot);
    return true;
  }
  if (!scan.entries->hasNext()) return false;
  scan.entries->next();
  const QString name = scan.entries->fileName();
  if (!scan.entries->fileInfo().isDir()) {
    scan.holdsGame = scan.holdsGame || IsGameProgram(name);
  } else if (!name.contains('\\')) {  // such a folder has no path in the program's text
    (scan.entries->fileInfo().isHidden() ? scan.hiddenNames : scan.names) += name;
  }
  return true;
}

void FolderModel::finish(Scan scan) {
  Folder& folder = at(scan.folder);
  folder.state = Folder::State::read;
  folder.holdsGame = scan.holdsGame;
  insert(scan.folder, std::move(scan.names), false);
  insert(scan.folder, std::move(scan.hiddenNames), true);
  Q_EMIT dataChanged(scan.folder, scan.folder);
}

void FolderModel::insert(const QModelIndex& index, QStringList names, bool hidden) {
  if (names.isEmpty()) return;
  names.sort(Qt::CaseInsensitive);
  const int first = rowCount(index);
  beginInsertRows(index, first, first + static_cast<int>(names.size()) - 1);
  for (const QString& name : std::as_const(names)) at(index).add(name, hidden);
  endInsertRows();
}

bool FolderModel::isRead(const QModelIndex& index) const {
  return at(index).state == Folder::State::read;
}

QModelIndex FolderModel::child(const QModelIndex& parent, const QString& name) const {
  const auto& children = at(parent).children;
  const auto found = std::find_if(children.begin(), children.end(),
                                  [&](const auto& folder) { return folder->name == name; });
  return found == children.end() ? QModelIndex() : index((*found)->row, 0, parent);
}

FolderModel::Folder& FolderModel::at(const QModelIndex& index) const {
  return index.isValid() ? *static_cast<Folder*>(index.internalPointer()) : *root_;
}

QModelIndex FolderModel::index(int row, int column, const QModelIndex& parent) const {
  if (!hasIndex(row, column, parent)) return {};
  return createIndex(row, column, at(parent).children[static_cast<std::size_t>(row)].get());
}

QModelIndex FolderModel::parent(const QModelIndex& index) const {
  Folder* parent = at(index).parent;
  return parent == nullptr || parent == root_.get() ? QModelIndex() : createIndex(parent->row, 0, parent);
}

int FolderModel::rowCount(const QModelIndex& parent) const {
  return static_cast<int>(at(parent).children.size());
}

// Until it has been read, every folder may hold others.
bool FolderModel::hasChildren(const QModelIndex& parent) const {
  const Folder& folder = at(parent);
  return folder.state != Folder::State::read || !folder.children.empty();
}

QVariant FolderModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const Folder& folder = at(index);
  switch (role) {
    case Qt::DisplayRole:
      return Shown(folder.name);
    case Qt::ToolTipRole:
    case PathRole:
      return path(folder);
    case Qt::DecorationRole:
      return icon(folder);
    case NativePathRole:
      return nativePath(folder);
    case Qt::AccessibleDescriptionRole:
      return description(folder);
    case Qt::ForegroundRole:
      return folder.hidden ? QApplication::palette().brush(QPalette::PlaceholderText) : QVariant();
    case Qt::FontRole:
      return folder.holdsGame ? Bold() : QVariant();
    case GameRole:
      return folder.holdsGame;
    default:
      return {};
  }
}

QString FolderModel::description(const Folder& folder) {
  if (folder.holdsGame) return "The game is in this folder";
  return folder.hidden ? QString("Hidden") : QString();
}

QIcon FolderModel::icon(const Folder& folder) const {
  if (folder.holdsGame) return gameFolderIcon_;
  return folder.parent == root_.get() ? places_[folder.row].icon : folderIcon_;
}

QString FolderModel::nativePath(const Folder& folder) const {
  if (folder.parent == root_.get()) return places_[folder.row].native;
  return Below(nativePath(*folder.parent), '/', folder.name);
}

QString FolderModel::path(const Folder& folder) const {
  if (folder.parent == root_.get()) return places_[folder.row].path;
  return Below(path(*folder.parent), '\\', folder.name);
}

}  // namespace korvane
