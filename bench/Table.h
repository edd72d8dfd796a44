// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Job.h"

namespace korvane {

// A row as one line of text, on its way from the process that measured it.
std::string LineOfRow(const Row& row);
// Nothing when the line holds no row.
std::optional<Row> RowOfLine(const std::string& line);

// Prints the rows as one table, the factors of each job one below the other. False when a promise does not
// hold.
bool PrintTable(const std::vector<Row>& rows);

}  // namespace korvane
