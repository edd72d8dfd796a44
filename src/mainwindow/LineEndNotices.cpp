// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/LineEndNotices.h"

#include <algorithm>
#include <utility>

#include "app/EditorLauncher.h"
#include "app/Services.h"
#include "controls/NoticeBar.h"
#include "controls/ShownText.h"
#include "ini/DataFiles.h"
#include "mainwindow/ObjectNotices.h"
#include "platform/EventYield.h"
#include "platform/MessageBoxes.h"

namespace korvane {

namespace {

constexpr std::size_t kMostNamed = 12;

QString NameOf(const UnixFile& file) {
  return QString::fromStdString(file.path);
}

// "1 file has", "3 files have"
QString Counted(std::size_t files) {
  return QString::number(files) + (files == 1 ? " file has" : " files have");
}

QString Named(const std::vector<UnixFile>& files) {
  QString names;
  for (std::size_t i = 0; i < files.size() && i < kMostNamed; ++i) names += kCrLf + NameOf(files[i]);
  if (files.size() > kMostNamed)
    names += kCrLf + QStringLiteral("and %1 more").arg(files.size() - kMostNamed);
  return names;
}

}  // namespace

QString SentenceOnUnixLineEnds(const std::vector<UnixFile>& files) {
  std::size_t whole = 0;
  std::size_t mixed = 0;
  std::size_t places = 0;
  for (const UnixFile& file : files) {
    ++(file.lineEnds.hasOther ? mixed : whole);
    if (file.lineEnds.hasOther) places += file.lineEnds.lf;
  }
  const QString inPlaces = QStringLiteral("in %1 %2, where lines are read as one.")
                               .arg(places)
                               .arg(places == 1 ? "place" : "places");
  if (whole == 0) return Counted(mixed) + " Unix line ends " + inPlaces;
  const QString all = Counted(whole) + " Unix line ends and " +
                      (whole == 1 ? "is read as one line" : "are read as one line each");
  return mixed == 0 ? all + '.' : all + "; " + Counted(mixed) + " them " + inPlaces;
}

LineEndNotices::LineEndNotices(QWidget& window, NoticeBar& bar, EditorLauncher& launcher,
                               const Services& services, std::function<void()> startAgain)
    : window_(window),
      bar_(bar),
      launcher_(launcher),
      services_(services),
      startAgain_(std::move(startAgain)) {}

void LineEndNotices::tell(std::vector<UnixFile> files) {
  files_ = std::move(files);
  mended_ = false;
  problems_.clear();
  show();
}

void LineEndNotices::lookAgain() {
  if (files_.empty() || converting_) return;
  std::vector<UnixFile> still = StillWithUnixLineEnds(services_.folders.game.toStdString(), files_);
  const bool fewer = still.size() < files_.size();
  files_ = std::move(still);
  if (!fewer) return;
  mended_ = true;
  show();
}

void LineEndNotices::show() {
  std::vector<Notice> notices;
  if (!files_.empty()) {
    notices.emplace_back(SentenceOnUnixLineEnds(files_)).button("Convert", [this] { convert(); });
  } else if (mended_) {
    notices.emplace_back("The line ends are mended. The tree shows all objects after a new start.");
  }
  if (mended_) notices.back().button("Start again", startAgain_);
  for (const QString& problem : problems_) notices.emplace_back(problem);
  bar_.tell(lineEndNotices, std::move(notices));
}

QString LineEndNotices::pathOf(const UnixFile& file) const {
  return QString::fromStdString(IniPath(services_.folders.game.toStdString(), file.path).text());
}

bool LineEndNotices::confirmed() {
  return services_.messages.show(
      {.text = "Do you want to convert the line ends of these files? What they hold now is kept among their "
               "former versions." +
               kCrLf + Named(files_),
       .icon = Message::Icon::question,
       .buttons = Message::Buttons::yesNo},
      &window_);
}

void LineEndNotices::convert() {
  if (converting_ || !confirmed()) return;
  converting_ = true;
  stopped_ = false;
  problems_.clear();
  std::size_t done = 0;
  for (const UnixFile& file : files_) {
    showProgress(done++, files_.size());
    services_.yield.fullTurn();
    if (stopped_) break;
    convertFile(pathOf(file));
  }
  converting_ = false;
  lookAgain();
  show();
}

void LineEndNotices::convertFile(const QString& path) {
  const QString name = path.section("\\Data\\INI\\", -1);
  if (launcher_.hasUnsavedText(path)) {
    problems_ += name + " has unsaved text in the manual editor and is left out.";
    return;
  }
  const QString reason = launcher_.convertLineEnds(path);
  if (!reason.isEmpty()) problems_ += name + ": " + reason;
}

void LineEndNotices::showProgress(std::size_t done, std::size_t all) {
  Notice notice(QStringLiteral("Converting line ends: %1 of %2 files are done.").arg(done).arg(all));
  notice.button("Stop", [this] { stopped_ = true; });
  bar_.tell(lineEndNotices, {notice});
}

}  // namespace korvane
