// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/OpenText.h"

#include <QLockFile>

#include <algorithm>
#include <filesystem>

#include "app/ManualEditRequest.h"
#include "app/Services.h"
#include "files/FileBytes.h"
#include "files/NativePath.h"
#include "manualeditor/IniTextEdit.h"
#include "platform/FileWriter.h"
#include "platform/MessageBoxes.h"

namespace korvane {

namespace {

constexpr std::size_t kLongestLine = 1 << 18;
constexpr int kNoteInterval = 3000;  // milliseconds of typing that a crash may cost
const QString kEndlessLine = QStringLiteral("A line is too long to be shown: ");
const QString kLineEnd = QStringLiteral("\r\n");

// A fault in the middle of a file shows in its length only.
bool ReadWhole(const QString& path, FileBytes& file) {
  const std::string text = path.toStdString();
  if (!file.read(text, {})) return false;
  std::error_code error;
  return std::filesystem::file_size(NativePath(text), error) == file.bytes().size() && !error;
}

// The text control lays out a line as a whole: one of a megabyte takes a second, over and over.
bool HasEndlessLine(std::string_view bytes) {
  for (std::size_t start = 0; bytes.size() - start > kLongestLine;) {
    const std::size_t end = bytes.find_first_of("\r\n", start);
    if (std::min(end, bytes.size()) - start > kLongestLine) return true;
    start = end + 1;
  }
  return false;
}

QString CodeOf(char32_t character) {
  return QStringLiteral("U+%1").arg(static_cast<uint>(character), 4, 16, QChar('0')).toUpper();
}

}  // namespace

OpenText::OpenText(IniTextEdit& text, const Services& services, const FileWriter& files,
                   const KeptVersions& versions)
    : text_(text), services_(services), files_(files), versions_(versions), journal_(versions) {
  noteTimer_.setSingleShot(true);
  noteTimer_.setInterval(kNoteInterval);
  connect(&noteTimer_, &QTimer::timeout, this, &OpenText::noteUnsaved);
  connect(&text_, &IniTextEdit::edited, &noteTimer_, [this] {
    if (!noteTimer_.isActive()) noteTimer_.start();
  });
}

bool OpenText::open(const ManualEditRequest& request) {
  if (request.text) return take(*request.text, request);
  FileBytes file;
  if (ReadWhole(request.ManualEditFile, file)) return take(file.bytes(), request);
  tell(QStringLiteral("The file cannot be read: ") + kLineEnd + request.ManualEditFile);
  return false;
}

bool OpenText::take(std::string_view bytes, const ManualEditRequest& request) {
  if (HasEndlessLine(bytes)) {
    tell(kEndlessLine + kLineEnd + request.ManualEditFile);
    return false;
  }
  keepUnsaved();
  file_ = request.ManualEditFile;
  part_ = request.ManualEditPartial != 0;
  text_.setBytes(bytes);
  return true;
}

void OpenText::save() {
  if (part_) return tell("Sorry, " + ApplicationTitle() + " can only save 'Files' not 'Objects'");
  const FileBytesOfText file = text_.fileBytes();
  if (file.refused) return refuse(file.refused->character, file.refused->position);
  auto lock = versions_.lock(file_);
  const QString notKept = versions_.keepReplaced(file_, file.bytes);
  const QString notWritten = files_.replace(file_, file.bytes);
  lock.reset();
  if (!notWritten.isEmpty()) {
    return tell(QStringLiteral("The file was not saved: ") + kLineEnd + file_ + kLineEnd + notWritten);
  }
  text_.setUnmodified();
  journal_.discard();
  if (!notKept.isEmpty()) {
    tell(QStringLiteral("The file is saved, but its former version could not be kept: ") + kLineEnd +
         notKept);
  }
}

void OpenText::refuse(char32_t character, qsizetype position) {
  const IniTextEdit::Place place = text_.placeOf(position);
  text_.selectCharacterAt(position);
  tell(QStringLiteral("The file was not saved: the game's files have no byte for the character '%1' (%2) "
                      "in line %3, column %4.")
           .arg(QString::fromUcs4(&character, 1), CodeOf(character))
           .arg(place.line + 1)
           .arg(place.column + 1));
}

void OpenText::tell(const QString& text) {
  services_.messages.show({.text = text}, text_.window());
}

void OpenText::keepUnsaved() {
  noteTimer_.stop();
  if (!text_.isModified()) return journal_.discard();
  const std::string bytes = text_.keepableBytes();
  const QString notKept = versions_.keepUnsaved(file_, part_, bytes);
  if (notKept.isEmpty()) return journal_.discard();
  const bool noted = journal_.note(file_, part_, bytes);
  journal_.release();
  tellNotKept(notKept, noted);
}

void OpenText::tellNotKept(const QString& reason, bool noted) {
  const QString next =
      noted ? kLineEnd + QStringLiteral("The program will try again when it next starts.") : QString();
  tell(QStringLiteral("The unsaved text could not be kept: ") + kLineEnd + file_ + kLineEnd + reason + next);
}

void OpenText::noteUnsaved() {
  if (text_.isModified()) {
    journal_.note(file_, part_, text_.keepableBytes());
  } else {
    journal_.discard();
  }
}

}  // namespace korvane
