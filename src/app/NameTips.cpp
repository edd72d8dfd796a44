// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/NameTips.h"

#include <QAbstractItemView>

#include <utility>

#include "app/EditorLauncher.h"
#include "controls/FullTextTips.h"

namespace korvane {

void TellOfName(QWidget& widget, EditorLauncher& launcher, std::function<std::optional<NameHere>()> name) {
  SetTipAt(widget, [&launcher, name = std::move(name)](const QPoint&) {
    const auto here = name();
    return here ? launcher.tellOfName(*here) : QString();
  });
}

void TellOfNames(QAbstractItemView& view, EditorLauncher& launcher,
                 std::function<std::optional<NameHere>(const QModelIndex& entry)> nameOf) {
  SetTipAt(*view.viewport(), [&view, &launcher, nameOf = std::move(nameOf)](const QPoint& at) {
    const QModelIndex entry = view.indexAt(at);
    const auto here = entry.isValid() ? nameOf(entry) : std::nullopt;
    return here ? launcher.tellOfName(*here) : QString();
  });
}

}  // namespace korvane
