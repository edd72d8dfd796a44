// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/PathField.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QDir>
#include <QDirIterator>
#include <QKeyEvent>
#include <QToolTip>

#include <algorithm>

#include "files/NativePath.h"
#include "platform/NativeText.h"

namespace korvane {

namespace {

constexpr int kMostOffers = 2000;

bool IsSeparator(QChar c) {
  return c == '/' || c == '\\';
}

// Where the typed path lies on this machine; empty when it is no full path.
QString NativeOf(const QString& typed) {
  QString path = typed.trimmed();
  if (path == "~" || path.startsWith("~/")) path.replace(0, 1, QDir::homePath());
  const bool isFull = path.startsWith('/') || (path.size() >= 2 && path[1] == ':' && path[0].isLetter());
  if (!isFull) return {};
  return QDir::cleanPath(NativeText(ProgramPath(path.replace('/', '\\').toStdString())));
}

// The path up to and with its last separator.
QString FolderPart(const QString& typed) {
  qsizetype end = typed.size();
  while (end > 0 && !IsSeparator(typed[end - 1])) --end;
  return typed.first(end);
}

QStringList FoldersIn(const QString& typedFolder) {
  QStringList found;
  QDirIterator entries(NativeOf(typedFolder), QDir::Dirs | QDir::Hidden | QDir::NoDotAndDotDot);
  while (entries.hasNext() && found.size() < kMostOffers) {
    entries.next();
    found += typedFolder + entries.fileName();
  }
  found.sort(Qt::CaseInsensitive);
  return found;
}

// A second "/" begins anew at the root, a "~" at the home folder, whatever stands before them.
QString BegunAnew(const QString& typed) {
  if (const qsizetype root = typed.lastIndexOf("//"); root > 0) return typed.mid(root + 1);
  const qsizetype home = typed.endsWith("/~") ? typed.size() - 2 : typed.lastIndexOf("/~/");
  return home < 0 ? typed : typed.mid(home + 1);
}

}  // namespace

PathField::PathField(QWidget* parent) : QLineEdit(parent) {
  setObjectName("TxtPath");
  setAccessibleName("Folder path");
  setPlaceholderText("Path of a folder");
  setClearButtonEnabled(false);
  auto* completer = new QCompleter(&offers_, this);
  completer->setCaseSensitivity(Qt::CaseInsensitive);
  completer->setModelSorting(QCompleter::CaseInsensitivelySortedModel);
  setCompleter(completer);
  connect(this, &QLineEdit::textEdited, this, &PathField::offer);
  hide();
}

void PathField::open(const QString& text) {
  setText(text);
  show();
  setFocus();
  offered_.clear();
  offer();
}

// The list is made anew when another folder has been typed.
void PathField::offer() {
  if (const QString anew = BegunAnew(text()); anew != text()) setText(anew);
  const QString folder = FolderPart(text());
  if (folder == offered_) return;
  offered_ = folder;
  offers_.setStringList(folder.isEmpty() ? QStringList() : FoldersIn(folder));
}

// Enter and Escape end here: the window around has uses of its own for them.
void PathField::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) return leave();
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) return enter();
  QLineEdit::keyPressEvent(event);
}

void PathField::enter() {
  const QString native = NativeOf(text());
  if (native.isEmpty() || !QFileInfo(native).isDir()) {
    QToolTip::showText(mapToGlobal(rect().bottomLeft()), "There is no such folder.", this);
    return;
  }
  Q_EMIT folderEntered(native);
  leave();
}

void PathField::leave() {
  hide();
  Q_EMIT left();
}

void PathField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  const bool stays =
      event->reason() == Qt::PopupFocusReason || event->reason() == Qt::ActiveWindowFocusReason;
  if (!stays && isVisible()) hide();
}

}  // namespace korvane
