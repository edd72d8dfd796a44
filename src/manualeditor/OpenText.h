// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QTimer>

#include <string_view>

#include "platform/KeptVersions.h"

namespace korvane {

class FileWriter;
class IniTextEdit;
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

  // Takes the place of the text, which is first kept where it is unsaved. False, after a message, when the
  // file cannot be read whole or shown; nothing is changed then.
  bool open(const ManualEditRequest& request);

  // The program's path of the file, and whether the text is only a part of it, from the moment the text was
  // handed over.
  const QString& file() const { return file_; }
  bool isPart() const { return part_; }

  // Writes the file, or says why not.
  void save();
  // Keeps an unsaved text among the former versions of its file, or says why not and leaves it to the next
  // start of the program.
  void keepUnsaved();

 private:
  bool take(std::string_view bytes, const ManualEditRequest& request);
  void noteUnsaved();
  void tellNotKept(const QString& reason, bool noted);
  void refuse(char32_t character, qsizetype position);
  void tell(const QString& text);

  IniTextEdit& text_;
  const Services& services_;
  const FileWriter& files_;
  const KeptVersions& versions_;
  QString file_;
  bool part_ = false;
  UnsavedJournal journal_;
  QTimer noteTimer_;
};

}  // namespace korvane
