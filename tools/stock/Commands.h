// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <string>
#include <vector>

namespace korvane {

// What the user asked for, and what is done about it. Each command gives true when all went well; problems
// are reported on standard error. A failure that ends a command is an exception.

struct PackOptions {
  std::vector<std::string> sources;  // game folders and archives, the first that has a file wins
  std::string output = ".";
  std::string name = "Data";
  bool all = false;                // every file below "Data\INI\" instead of the catalogue's
  std::vector<std::string> files;  // these instead of the catalogue's
  bool partial = false;            // leave out what no source has
};
bool Pack(const PackOptions& options);

struct ExtractOptions {
  std::string container;  // a database or an archive
  std::string folder;
  std::vector<std::string> files;  // empty: all
  bool overwrite = false;
};
bool Extract(const ExtractOptions& options);

bool List(const std::string& container);

// Reads everything and looks for faults.
bool Verify(const std::string& container);

}  // namespace korvane
