// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/FindList.h"

#include <QComboBox>
#include <QSet>
#include <QSignalBlocker>

namespace korvane {

void RemoveDuplicates(QComboBox& list) {
  const QSignalBlocker quiet(list);
  const QString text = list.currentText();
  QSet<QString> seen;
  for (int i = 0; i < list.count();) {
    const QString item = list.itemText(i);
    if (seen.contains(item)) {
      list.removeItem(i);
    } else {
      seen.insert(item);
      ++i;
    }
  }
  list.setEditText(text);
}

}  // namespace korvane
