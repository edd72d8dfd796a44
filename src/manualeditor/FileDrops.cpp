// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/FileDrops.h"

#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

#include <filesystem>

#include "files/NativePath.h"

namespace korvane {

void FileDrops::watch(QWidget& widget) {
  widget.setAcceptDrops(true);
  widget.installEventFilter(this);
}

QStringList FileDrops::filesOf(const QMimeData& data) {
  QStringList files;
  for (const QUrl& url : data.urls()) {
    const std::filesystem::path native(url.toLocalFile().toStdU16String());
    if (url.isLocalFile()) files += QString::fromStdString(ProgramText(native));
  }
  return files;
}

bool FileDrops::eventFilter(QObject* watched, QEvent* event) {
  const auto type = event->type();
  const bool drags = type == QEvent::DragEnter || type == QEvent::DragMove || type == QEvent::Drop;
  if (!drags) return QObject::eventFilter(watched, event);
  auto& drop = *static_cast<QDropEvent*>(event);
  const QStringList files = filesOf(*drop.mimeData());
  if (files.isEmpty()) return QObject::eventFilter(watched, event);
  drop.setDropAction(Qt::CopyAction);  // the file stays where it is
  drop.accept();
  if (type == QEvent::Drop) Q_EMIT dropped(files);
  return true;
}

}  // namespace korvane
