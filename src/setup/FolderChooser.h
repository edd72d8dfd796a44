// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

namespace korvane {

class FolderTree;

// The folder tree that lives inside another window's picture box. There is one in a run: it is made once and,
// when it has been closed, never again.
class FolderChooser {
 public:
  QPointer<QWidget> BrowseHost;  // the box that the tree fills; set before BrowseForFolder

  // The full path of the folder selected last, in the program's path text. Until the first selection it is
  // the start folder followed by a NUL character.
  QString SelectedFolder;

  // Makes the tree in its host, with nothing selected.
  void BrowseForFolder(const QString& startFolder);

  // Moves and sizes the tree inside its host (pixels).
  void ResizeBrowseTree(int x, int y, int width, int height);

  // Destroys the tree. Does nothing where there is none.
  void CloseBrowse();

 private:
  bool made_ = false;
  QPointer<FolderTree> tree_;  // its host owns it
};

}  // namespace korvane
