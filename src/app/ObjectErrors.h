// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

namespace korvane {

// What is wrong with one object of the data files.
struct ObjectErrors {
  QString path{};   // of its file, below "Data\INI\"
  QString name{};   // as its header has it
  QString texts{};  // a line for each finding
};

}  // namespace korvane
