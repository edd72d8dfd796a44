// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <optional>

#include "app/NameSource.h"

class QAbstractItemView;
class QModelIndex;
class QWidget;

namespace korvane {

class EditorLauncher;

// The widget's tooltip tells of the name that it shows.
void TellOfName(QWidget& widget, EditorLauncher& launcher, std::function<std::optional<NameHere>()> name);
// The tooltips of the view's entries tell of the names that they show.
void TellOfNames(QAbstractItemView& view, EditorLauncher& launcher,
                 std::function<std::optional<NameHere>(const QModelIndex& entry)> nameOf);

}  // namespace korvane
