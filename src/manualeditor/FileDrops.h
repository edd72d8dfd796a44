// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QStringList>

class QMimeData;

namespace korvane {

// Files that are dropped on widgets; the text that some desktops send with them is not.
class FileDrops : public QObject {
  Q_OBJECT

 public:
  explicit FileDrops(QObject* parent) : QObject(parent) {}
  void watch(QWidget& widget);

 Q_SIGNALS:
  // The program's paths.
  void dropped(const QStringList& files);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  static QStringList filesOf(const QMimeData& data);
};

}  // namespace korvane
