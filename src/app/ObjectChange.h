// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace korvane {

// What is not the original's in one object of the data files.
struct ObjectChange {
  QString path{};  // of its file, below "Data\INI\"
  QString name{};  // as its header has it
  QString text{};  // for the user, in lines
};

}  // namespace korvane
