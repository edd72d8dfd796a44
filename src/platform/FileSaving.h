// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace korvane {

class FileWriter;
class KeptVersions;

// Tells whether bytes are others than before without keeping them.
struct BytesMark {
  std::uint64_t size = 0;
  std::size_t hash = 0;

  bool operator==(const BytesMark&) const = default;
};
BytesMark MarkOf(std::string_view bytes);

// One file of the user's and its new text, on the way to the disk: the former version is kept first.
struct FileToSave {
  QString path{};                     // the program's own
  std::string_view bytes{};           // of the whole file
  std::string_view utf8{};            // the same text's characters
  std::optional<BytesMark> opened{};  // what the file is expected to hold; nothing: it may hold anything
  bool formerMayGo = false;           // a former version that cannot be read is given up
};

struct FileSaved {
  // Whatever stops a save leaves the file as it was.
  enum class Stop { none, otherBytes, formerUnreadable, failed };

  Stop stop = Stop::none;
  QString reason{};                 // of a failure, the system's
  QString notKept{};                // why the former version of a file that is saved could not be kept
  std::optional<BytesMark> seen{};  // what the file held instead
};

FileSaved SaveFile(const FileToSave& file, const FileWriter& writer, const KeptVersions& versions);

}  // namespace korvane
