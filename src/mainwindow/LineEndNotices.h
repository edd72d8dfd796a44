// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QStringList>

#include <functional>
#include <vector>

#include "catalogue/LineEnds.h"

class QWidget;

namespace korvane {

class EditorLauncher;
class NoticeBar;
struct Services;

// Says which files have Unix line ends, converts them when the user wants it, and offers a new start
// afterwards, since the tree is filled at the start only.
class LineEndNotices {
 public:
  LineEndNotices(QWidget& window, NoticeBar& bar, EditorLauncher& launcher, const Services& services,
                 std::function<void()> startAgain);

  void tell(std::vector<UnixFile> files);
  // Looks whether the files still have them, if any had.
  void lookAgain();

 private:
  void show();
  bool confirmed();
  void convert();
  void convertFile(const QString& path);
  void showProgress(std::size_t done, std::size_t all);
  QString pathOf(const UnixFile& file) const;

  QWidget& window_;
  NoticeBar& bar_;
  EditorLauncher& launcher_;
  const Services& services_;
  std::function<void()> startAgain_;
  std::vector<UnixFile> files_;
  QStringList problems_;  // sentences about files that were not converted
  bool mended_ = false;   // some files no longer have them
  bool converting_ = false;
  bool stopped_ = false;
};

// How many files it is about, and why it matters; files that have other line ends too come second.
QString SentenceOnUnixLineEnds(const std::vector<UnixFile>& files);

}  // namespace korvane
