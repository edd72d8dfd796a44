// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/FolderChooser.h"

#include "controls/FolderTree.h"

namespace korvane {

void FolderChooser::BrowseForFolder(const QString& startFolder) {
  if (made_ || BrowseHost == nullptr) return;
  made_ = true;
  SelectedFolder = startFolder + QChar::Null;
  tree_ = new FolderTree(StandardPlaces(), BrowseHost);
  tree_->setObjectName("BrowseTree");
  BrowseHost->setFocusProxy(tree_);
  QObject::connect(tree_, &FolderTree::folderSelected, tree_,
                   [this](const QString& path) { SelectedFolder = path; });
  ResizeBrowseTree(0, 0, BrowseHost->width(), BrowseHost->height());
  tree_->show();
}

void FolderChooser::ResizeBrowseTree(int x, int y, int width, int height) {
  if (tree_ != nullptr) tree_->setGeometry(x, y, width, height);
}

void FolderChooser::CloseBrowse() {
  if (tree_ == nullptr) return;
  // The tree may be in the middle of the very key press that closes the window around it.
  tree_->hide();
  tree_->disconnect();
  tree_->deleteLater();
  tree_.clear();
}

}  // namespace korvane
