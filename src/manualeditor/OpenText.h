// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include <optional>
#include <string_view>

#include "app/Places.h"
#include "files/StillFile.h"
#include "platform/FileSaving.h"
#include "platform/UnsavedJournal.h"

namespace korvane {

class FileWriter;
class IniTextEdit;
class KeptVersions;
struct ManualEditRequest;
struct Services;

// The text in the manual editor and its file: how it comes from the disk and goes back, and that it is not
// lost in between.
class OpenText : public QObject {
  Q_OBJECT

 public:
  // Messages belong to the window that holds the text.
  OpenText(IniTextEdit& text, const Services& services, const FileWriter& files,
           const KeptVersions& versions);

  // Takes the place of the text, which is first let go. False, after a message or the user's answer, when
  // that or the opening comes to nothing; nothing is changed then.
  bool open(const ManualEditRequest& request);

  // The program's path of the file, and whether the text is only a part of it, from the moment the text was
  // handed over.
  const QString& file() const { return file_; }
  bool isPart() const { return part_; }
  // The archive or further folder that has the file, the program's path; empty for all others.
  const QString& archive() const { return archive_; }
  // Of the cursor; nothing for a part, and for a file outside of the game folder.
  std::optional<FilePlace> place() const;
  // Closing it would lose something.
  bool isUnsaved() const;

  // Writes the file. False, after a message or the user's answer, when it is not saved.
  bool save();
  // Keeps an unsaved text among the former versions of its file. Where it cannot be kept the user is asked;
  // false: the text is to stay.
  bool letGo();
  // The same for a program that ends in any case: nothing is asked. A text that cannot be kept goes to the
  // folder for temporary files and is named on the error stream.
  void keepAtEnd();
  // Loads a whole file anew that another program changed while nothing was typed. A text whose file is gone
  // is unsaved from then on.
  void lookAgain();

  // What there is to be said of the text, each in a place of its own in the window.
  enum Notice { ofFile, ofDraft, ofArchive };

 Q_SIGNALS:
  // An empty text takes back what was said.
  void said(Notice notice, const QString& sentence);
  void loadedAnew();

 private:
  void loadNewText();
  void showAnew(std::string_view bytes, const FileLook& look);
  UnsavedText unsaved() const;
  bool mayLose(const QString& reason);
  bool goesOn(FileToSave& file, const FileSaved& saved);
  bool saveInstead(const FileSaved& saved, FileToSave& file);
  void saved(std::string_view bytes);
  void noteUnsaved();
  void tellNoted(const QString& reason);
  void refuse(char32_t character, qsizetype position);
  QString fileName() const;
  void tell(const QString& text);
  int ask(const QString& text, const QStringList& answers);

  IniTextEdit& text_;
  const Services& services_;
  const FileWriter& files_;
  const KeptVersions& versions_;
  QString file_;
  bool part_ = false;
  QString archive_;
  std::optional<BytesMark> onDisk_;  // what the file held when it was last read or written; none of a part
  FileLook look_;
  bool vanished_ = false;
  UnsavedJournal journal_;
  QTimer noteTimer_;
};

}  // namespace korvane
