// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QString>
#include <QTimer>

#include <filesystem>
#include <memory>
#include <string>

#include "files/FileLock.h"
#include "platform/UnsavedText.h"

namespace korvane {

class KeptVersions;
class WholeFile;

inline const QString kJournalEnding = QStringLiteral(".journal");
inline const QString kLockEnding = QStringLiteral(".lock");

// The unsaved text of one window, on the disk for the case that the program ends without a chance to keep it.
// The next KeptVersions on the same folder turns it into a kept version.
class UnsavedJournal : public QObject {
  Q_OBJECT

 public:
  explicit UnsavedJournal(const KeptVersions& versions);
  ~UnsavedJournal() override;

  // Replaces what was noted before. Gives the reason when it is not on the disk; what was noted before then
  // still is. It survives the end of the program, but perhaps not a power cut, except for a text whose file
  // is being overwritten.
  QString note(const UnsavedText& text);
  // The same bit by bit from the event loop, which is not held up for long. `noted` tells the end.
  void noteSoon(UnsavedText text);
  bool isNoting() const { return writing_ != nullptr; }
  // The text is saved or kept.
  void discard();
  // Leaves what is noted to the next start of the program, as the end of the journal does.
  void release();

 Q_SIGNALS:
  void noted(const QString& reason);

 private:
  QString begin();
  void writeOn();
  void stop();

  const KeptVersions& versions_;
  std::filesystem::path file_;
  FileLock lock_;  // held while the window lives, so that no other copy takes the text
  UnsavedText text_;
  std::size_t written_ = 0;  // of the text that is being noted
  std::unique_ptr<WholeFile> writing_;
  QTimer timer_;
};

}  // namespace korvane
