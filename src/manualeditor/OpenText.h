// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include <array>
#include <memory>
#include <optional>
#include <string_view>

#include "app/ManualEditRequest.h"
#include "app/Places.h"
#include "catalogue/CatalogueFile.h"
#include "files/StillFile.h"
#include "manualeditor/BlockDuplication.h"
#include "manualeditor/TextDocument.h"
#include "platform/FileSaving.h"
#include "platform/UnsavedJournal.h"

namespace korvane {

class FileWriter;
class IniTextEdit;
class KeptVersions;
struct Services;

// One of the texts in the manual editor and its file: how it comes from the disk and goes back, and that it
// is not lost in between, whichever text is shown.
class OpenText : public QObject {
  Q_OBJECT

 public:
  // Messages belong to the window that holds the text.
  OpenText(QObject* owner, IniTextEdit& text, const Services& services, const FileWriter& files,
           const KeptVersions& versions);

  // Takes the place of the text, which is first let go, and is shown. False, after a message or the user's
  // answer, when that or the opening comes to nothing; nothing is changed then.
  bool open(const ManualEditRequest& request);
  // The request is for the file, or the part of it, that this is.
  bool isFor(const ManualEditRequest& request) const;
  // It was asked for, and has unsaved text that stays.
  void tellNotLoaded();

  void show() { document_.show(); }
  bool isShown() const { return document_.isShown(); }
  // Where its set-up, or that of its place, is still to go.
  ManualEditPlace& place() { return place_; }
  CopyNote& copyNote() { return copyNote_; }

  // The program's path of the file, and whether the text is only a part of it, from the moment the text was
  // handed over.
  const QString& file() const { return file_; }
  bool isPart() const { return part_; }
  // The archive or further folder that has the file, the program's path; empty for all others.
  const QString& archive() const { return archive_; }
  // The whole of a file that can be changed.
  bool isWhole() const { return !part_ && !isReadOnly(); }
  // It can only be read, see ManualEditRequest.
  bool isReadOnly() const { return onlyRead_ || !archive_.isEmpty(); }
  // For a file that is none of the game folder's INI files.
  QString whyReadOnly() const;
  // The file's name, or what a part is about.
  QString caption() const;
  // How many lines it had when they were last counted.
  int lineTotal() const { return lineTotal_; }
  void countLines();
  // Of the cursor in the shown text; nothing for a part, and for a file outside of the game folder.
  std::optional<FilePlace> cursorPlace() const;
  // Of a file of the game folder, its path below it; empty for others and for what cannot be changed.
  QString pathInGame() const;
  // What the text defines, where it is unsaved and one of the files that the catalogue has; else nullptr.
  // Read at the first question behind an edit.
  std::shared_ptr<const CatalogueFile> unsavedNames() const;
  // Closing it would lose something.
  bool isUnsaved() const;

  // Shows the file as the disk has it, where the user does not want to keep unsaved text in its place.
  void reload();
  // The whole text, unsaved changes included, until its next change; or see LegibleBytesOfUtf8.
  std::string_view utf8() const { return document_.utf8(); }
  std::string bytes() const;

  // Writes the file. False, after a message or the user's answer, when it is not saved.
  bool save();
  // Keeps an unsaved text among the former versions of its file. Where it cannot be kept the user is asked;
  // false: the text is to stay.
  bool letGo();
  // The same for a program that ends in any case: nothing is asked. A text that cannot be kept goes to the
  // folder for temporary files and is named on the error stream.
  void keepAtEnd();
  // Loads a whole file anew that another program changed while nothing was typed, once it is shown. A text
  // whose file is gone is unsaved from then on.
  void lookAgain();

  // What there is to be said of the text, each in a place of its own in the window; empty when there is
  // nothing.
  enum Notice { ofFile, ofDraft, ofArchive };
  const QString& said(Notice notice) const { return said_[notice]; }

 Q_SIGNALS:
  // See said().
  void toldOf(Notice notice);
  void loadedAnew();
  // The program is to be started anew as administrator.
  void administratorAsked();

 private:
  void loadNewText();
  void showAnew(std::string_view bytes, const FileLook& look);
  void say(Notice notice, const QString& sentence);
  UnsavedText unsaved() const;
  bool mayLose(const QString& reason);
  void tellFailed(const QString& reason);
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
  TextDocument document_;
  const Services& services_;
  const FileWriter& files_;
  const KeptVersions& versions_;
  QString file_;
  bool part_ = false;
  bool onlyRead_ = false;
  QString archive_;
  QString heading_;  // of a part
  ManualEditPlace place_;
  CopyNote copyNote_;
  mutable std::shared_ptr<const CatalogueFile> names_;  // of the text as it is; nullptr: not read
  int lineTotal_ = 0;
  std::array<QString, 3> said_;
  std::optional<BytesMark> onDisk_;  // what the file held when it was last read or written; none of a part
  FileLook look_;
  bool vanished_ = false;
  UnsavedJournal journal_;
  QTimer noteTimer_;
};

}  // namespace korvane
