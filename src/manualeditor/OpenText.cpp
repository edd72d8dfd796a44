// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/OpenText.h"

#include <QDir>
#include <QUuid>

#include <iostream>

#include "app/Services.h"
#include "catalogue/BlockTree.h"
#include "files/NativePath.h"
#include "manualeditor/BlockOutline.h"
#include "manualeditor/IniTextEdit.h"
#include "manualeditor/ShowableFile.h"
#include "manualeditor/UserFile.h"
#include "platform/FileWriter.h"
#include "platform/KeptVersions.h"
#include "platform/MessageBoxes.h"
#include "platform/Programs.h"

namespace korvane {

namespace {

constexpr int kNoteInterval = 3000;  // milliseconds of typing that a crash may cost
const QString kLineEnd = QStringLiteral("\r\n");

QString CodeOf(char32_t character) {
  return QStringLiteral("U+%1").arg(static_cast<uint>(character), 4, 16, QChar('0')).toUpper();
}

// Below the game folder, letter case ignored; empty for a file that is not in it.
QString PathIn(const QString& gameFolder, const QString& file) {
  const QString folder = gameFolder + '\\';
  return file.startsWith(folder, Qt::CaseInsensitive) ? file.mid(folder.size()) : QString();
}

// What a part is about: its outermost blocks.
QString HeadingOf(std::string_view utf8) {
  QStringList captions;
  for (const TextBlock& block : ReadBlocks(utf8)) {
    if (block.depth == 0) captions += BlockOutline::captionOf(block);
  }
  return captions.join(", ");
}

}  // namespace

OpenText::OpenText(QObject* owner, IniTextEdit& text, const Services& services, const FileWriter& files,
                   const KeptVersions& versions)
    : QObject(owner),
      text_(text),
      document_(text),
      services_(services),
      files_(files),
      versions_(versions),
      journal_(versions) {
  noteTimer_.setSingleShot(true);
  noteTimer_.setInterval(kNoteInterval);
  connect(&noteTimer_, &QTimer::timeout, this, &OpenText::noteUnsaved);
  connect(&journal_, &UnsavedJournal::noted, this, &OpenText::tellNoted);
  connect(&text_, &IniTextEdit::edited, &noteTimer_, [this] {
    if (!document_.isShown()) return;
    names_.reset();
    if (!noteTimer_.isActive()) noteTimer_.start();
  });
}

bool OpenText::open(const ManualEditRequest& request) {
  FileBytes file;
  FileLook look;
  const QString problem =
      request.text ? WhyNotShown(*request.text) : ReadToShow(request.ManualEditFile, file, look);
  if (!problem.isEmpty()) {
    tell(problem + kLineEnd + request.ManualEditFile);
    return false;
  }
  if (!letGo()) return false;
  file_ = request.ManualEditFile;
  part_ = request.ManualEditPartial != 0;
  archive_ = request.archive;
  onlyRead_ = request.onlyRead;
  heading_ = part_ && request.text ? HeadingOf(*request.text) : QString();
  onDisk_.reset();
  if (!request.text && !part_) onDisk_ = MarkOf(file.bytes());
  look_ = look;
  vanished_ = false;
  document_.show();
  text_.setReadOnly(false);  // for the new text itself
  const std::string_view bytes = request.text ? std::string_view(*request.text) : file.bytes();
  text_.setUtf8(request.utf8 ? QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size()))
                             : Utf8OfFile(bytes));
  text_.setReadOnly(isReadOnly());
  place_ = {};
  copyNote_ = {};
  names_.reset();
  lineTotal_ = 0;
  say(ofFile, {});
  return true;
}

bool OpenText::isFor(const ManualEditRequest& request) const {
  const bool part = request.ManualEditPartial != 0;
  if (part != part_ || request.archive != archive_) return false;
  if (request.ManualEditFile.compare(file_, Qt::CaseInsensitive) != 0) return false;
  return !part || heading_ == HeadingOf(request.text.value_or(std::string()));
}

void OpenText::tellNotLoaded() {
  say(ofFile, caption() + " has unsaved text, so it was not loaded again.");
}

QString OpenText::caption() const {
  return part_ && !heading_.isEmpty() ? heading_ : fileName();
}

QString OpenText::whyReadOnly() const {
  return fileName() + " is none of the game folder's INI files and can only be read here.";
}

void OpenText::countLines() {
  lineTotal_ = text_.lineCount();
}

std::string OpenText::bytes() const {
  return LegibleBytesOfUtf8(document_.utf8());
}

void OpenText::say(Notice notice, const QString& sentence) {
  said_[notice] = sentence;
  Q_EMIT toldOf(notice);
}

bool OpenText::save() {
  document_.show();
  if (!archive_.isEmpty()) {
    tell("This text is in " + ArchiveName(archive_) + "; extract it first.");
    return false;
  }
  if (onlyRead_) {
    tell(whyReadOnly());
    return false;
  }
  if (part_) {
    tell("Sorry, " + ApplicationTitle() + " can only save 'Files' not 'Objects'");
    return false;
  }
  const FileBytesOfText text = text_.fileBytes();
  if (text.refused) {
    refuse(text.refused->character, text.refused->position);
    return false;
  }
  FileToSave file{file_, text.bytes, document_.utf8(), onDisk_};
  FileSaved result = SaveFile(file, files_, versions_);
  while (goesOn(file, result)) result = SaveFile(file, files_, versions_);
  if (result.stop != FileSaved::Stop::none) return false;
  saved(text.bytes);
  if (!result.notKept.isEmpty()) {
    tell(QStringLiteral("The file is saved, but its former version could not be kept: ") + kLineEnd +
         result.notKept);
  }
  return true;
}

// Tells or asks why a save came to nothing. True: it is to be tried once more.
bool OpenText::goesOn(FileToSave& file, const FileSaved& saved) {
  switch (saved.stop) {
    case FileSaved::Stop::none:
      break;
    case FileSaved::Stop::otherBytes:
      return saveInstead(saved, file);
    case FileSaved::Stop::formerUnreadable:
      file.formerMayGo = true;
      return ask(fileName() + " cannot be read, so its former version cannot be kept.",
                 {"Save anyway", "Cancel"}) == 0;
    case FileSaved::Stop::failed:
      tellFailed(saved.reason);
  }
  return false;
}

void OpenText::tellFailed(const QString& reason) {
  const QString failed = QStringLiteral("The file was not saved: ") + kLineEnd + file_ + kLineEnd + reason;
  if (!services_.process.needsAdministrator(file_)) return tell(failed);
  const QString kept = kLineEnd + "A restart keeps the text, unsaved, among the file's former versions.";
  if (ask(failed + kept, {"Restart as administrator", "Cancel"}) == 0) Q_EMIT administratorAsked();
}

// What is saved anyway is the text over these other bytes; over others again it is another question.
bool OpenText::saveInstead(const FileSaved& saved, FileToSave& file) {
  enum { saveAnyway, loadNew };
  file.opened = saved.seen;
  const int answer = ask(fileName() + " was changed by another program since it was opened.",
                         {"Save anyway", "Load the new text", "Cancel"});
  if (answer == loadNew) loadNewText();
  return answer == saveAnyway;
}

void OpenText::saved(std::string_view bytes) {
  text_.setUnmodified();
  vanished_ = false;
  onDisk_ = MarkOf(bytes);
  look_ = LookAt(NativePath(ProgramPath(file_.toStdString()))).value_or(FileLook());
  noteTimer_.stop();
  journal_.discard();
  say(ofFile, {});
}

void OpenText::loadNewText() {
  FileBytes file;
  FileLook look;
  const QString problem = ReadToShow(file_, file, look);
  if (!problem.isEmpty()) return tell(problem + kLineEnd + file_);
  if (letGo()) showAnew(file.bytes(), look);
}

void OpenText::reload() {
  const QString question = fileName() + " has unsaved text, which is kept among its former versions.";
  if (isUnsaved() && ask(question, {"Load the file", "Cancel"}) != 0) return;
  loadNewText();
}

void OpenText::showAnew(std::string_view bytes, const FileLook& look) {
  const bool other = MarkOf(bytes) != onDisk_;
  look_ = look;
  vanished_ = false;
  onDisk_ = MarkOf(bytes);
  say(ofFile, other ? fileName() + " was changed by another program and is loaded anew." : QString());
  if (!other && !document_.isModified()) return;
  document_.show();
  text_.setReadOnly(false);
  text_.setBytesAgain(bytes);
  text_.setReadOnly(isReadOnly());
  countLines();
  Q_EMIT loadedAnew();
}

void OpenText::lookAgain() {
  if (!onDisk_ || document_.isModified()) return;
  const std::optional<FileLook> look = LookAt(NativePath(ProgramPath(file_.toStdString())));
  if (!look && !vanished_) {
    vanished_ = true;
    say(ofFile, fileName() + " is no longer there. Its text is not saved.");
  }
  if (!look || !isShown() || (*look == look_ && !vanished_)) return;
  FileBytes file;
  FileLook stillLook;
  if (ReadToShow(file_, file, stillLook).isEmpty()) showAnew(file.bytes(), stillLook);
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

QString OpenText::fileName() const {
  return file_.mid(qMax(file_.lastIndexOf('\\'), file_.lastIndexOf('/')) + 1);
}

void OpenText::tell(const QString& text) {
  services_.messages.show({.text = text}, text_.window());
}

int OpenText::ask(const QString& text, const QStringList& answers) {
  return services_.messages.ask({.text = text, .answers = answers}, text_.window());
}

std::optional<FilePlace> OpenText::cursorPlace() const {
  const QString path = PathIn(services_.folders.game, file_);
  if (part_ || path.isEmpty()) return std::nullopt;
  const IniTextEdit::Place cursor = text_.placeOf(text_.selection().from);
  return FilePlace{path, archive_, cursor.line + 1, cursor.column + 1};
}

QString OpenText::pathInGame() const {
  return isWhole() ? PathIn(services_.folders.game, file_) : QString();
}

std::shared_ptr<const CatalogueFile> OpenText::unsavedNames() const {
  const QString path = pathInGame();
  if (!isUnsaved() || !IsDataFile(path)) return nullptr;
  if (names_ == nullptr) {
    names_ = CatalogueFile::read(
        {.path = path.toStdString(), .container = services_.folders.game.toStdString()}, bytes());
  }
  return names_;
}

bool OpenText::isUnsaved() const {
  return document_.isModified() || vanished_;
}

UnsavedText OpenText::unsaved() const {
  return {file_, part_, std::string(document_.utf8())};
}

bool OpenText::letGo() {
  noteTimer_.stop();
  const QString notKept = isUnsaved() ? versions_.keepUnsaved(unsaved()) : QString();
  if (!notKept.isEmpty()) return mayLose(notKept);
  journal_.discard();
  return true;
}

bool OpenText::mayLose(const QString& reason) {
  document_.show();
  const bool noted = journal_.note(unsaved()).isEmpty();
  const QString next =
      noted ? kLineEnd + QStringLiteral("The program will try again when it next starts.") : QString();
  const QStringList answers =
      part_ ? QStringList{"Close anyway", "Cancel"} : QStringList{"Close anyway", "Save", "Cancel"};
  const int answer = ask(
      QStringLiteral("The unsaved text could not be kept: ") + kLineEnd + file_ + kLineEnd + reason + next,
      answers);
  if (answers[answer] == "Save") return save();
  if (answers[answer] == "Cancel") return false;
  journal_.release();
  return true;
}

void OpenText::keepAtEnd() {
  noteTimer_.stop();
  if (!isUnsaved()) return journal_.discard();
  const UnsavedText text = unsaved();
  const QString notKept = versions_.keepUnsaved(text);
  if (notKept.isEmpty()) return journal_.discard();
  journal_.note(text);
  const QString refuge = QDir::tempPath() + "/Korvane " + QUuid::createUuid().toString(QUuid::Id128).left(8) +
                         ' ' + FittingName(fileName());
  const QString reason = files_.createPrivate(refuge, KeepableOfUtf8(text.utf8).bytes);
  const QString where = reason.isEmpty() ? "it is in " + refuge : "nor in " + refuge + ": " + reason;
  std::cerr << "The unsaved text of " << file_.toStdString() << " could not be kept ("
            << notKept.toStdString() << "); " << where.toStdString() << std::endl;
}

void OpenText::noteUnsaved() {
  if (!isUnsaved()) return journal_.discard();
  if (journal_.isNoting()) return noteTimer_.start();
  journal_.noteSoon(unsaved());
}

void OpenText::tellNoted(const QString& reason) {
  if (!reason.isEmpty()) noteTimer_.start();  // it may go well the next time
  say(ofDraft, reason.isEmpty() ? QString() : "What is typed is not safe from a crash: " + reason);
}

}  // namespace korvane
