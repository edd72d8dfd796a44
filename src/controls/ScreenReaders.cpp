// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/ScreenReaders.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QWidget>

namespace korvane {

namespace {

// Asked for each class of an object, from the last one derived to the first.
QAccessibleInterface* WindowInterface(const QString& className, QObject* object) {
  auto* widget = qobject_cast<QWidget*>(object);
  if (className != "QWidget" || widget == nullptr || widget->windowType() != Qt::Window) return nullptr;
  return new QAccessibleWidget(widget, QAccessible::Window);
}

}  // namespace

void InstallWindowRoles() {
  QAccessible::installFactory(WindowInterface);
}

QVariant UnseenHeading(const char* heading, Qt::Orientation orientation, int role) {
  return orientation == Qt::Horizontal && role == Qt::DisplayRole ? QVariant(heading) : QVariant();
}

}  // namespace korvane
