// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/UnsavedJournal.h"

#include <QDir>
#include <QUuid>

#include "files/NativePath.h"
#include "files/WholeFile.h"
#include "platform/KeptVersions.h"

namespace korvane {

namespace {

constexpr std::size_t kPiece = std::size_t{1} << 20;  // bytes that are written in one turn of the event loop
constexpr std::chrono::milliseconds kPatience(100);  // with a program that starts and looks what is left over
constexpr WholeFile::Options kDraft{.access = DiskFile::Access::userOnly, .sync = false};

}  // namespace

UnsavedJournal::UnsavedJournal(const KeptVersions& versions) : versions_(versions) {
  connect(&timer_, &QTimer::timeout, this, &UnsavedJournal::writeOn);
}

UnsavedJournal::~UnsavedJournal() = default;

QString UnsavedJournal::begin() {
  if (lock_.isHeld()) return {};
  const QString folder = versions_.journalFolder();
  const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces) + kJournalEnding;
  if (!QDir().mkpath(folder)) return QStringLiteral("The folder %1 cannot be made").arg(folder);
  file_ = NativePath(ProgramPath((folder + '/' + name).toStdString()));
  const bool held =
      lock_.take(NativePath(ProgramPath((folder + '/' + name + kLockEnding).toStdString())), kPatience);
  return held ? QString() : QStringLiteral("The folder %1 cannot be written").arg(folder);
}

QString UnsavedJournal::note(const UnsavedText& text) {
  stop();
  if (const QString reason = begin(); !reason.isEmpty()) return reason;
  WholeFile file(file_, {.access = kDraft.access, .sync = !text.former.isEmpty()});
  file.write(HeadOfJournal(text));
  file.write(text.utf8);
  return QString::fromLocal8Bit(file.replace().c_str());
}

void UnsavedJournal::noteSoon(UnsavedText text) {
  stop();
  if (const QString reason = begin(); !reason.isEmpty()) return Q_EMIT noted(reason);
  text_ = std::move(text);
  written_ = 0;
  writing_ = std::make_unique<WholeFile>(file_, kDraft);
  writing_->write(HeadOfJournal(text_));
  timer_.start(0);
}

void UnsavedJournal::writeOn() {
  const std::string_view piece = std::string_view(text_.utf8).substr(written_, kPiece);
  writing_->write(piece);
  written_ += piece.size();
  if (written_ < text_.utf8.size() && writing_->reason().empty()) return;
  const QString reason = QString::fromLocal8Bit(writing_->replace().c_str());
  stop();
  Q_EMIT noted(reason);
}

void UnsavedJournal::stop() {
  timer_.stop();
  writing_.reset();
  text_ = {};
}

void UnsavedJournal::discard() {
  stop();
  if (!lock_.isHeld()) return;
  std::error_code ignored;
  std::filesystem::remove(file_, ignored);
  lock_.release();
}

void UnsavedJournal::release() {
  stop();
  lock_.release();
}

}  // namespace korvane
