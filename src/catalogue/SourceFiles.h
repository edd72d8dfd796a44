// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <vector>

#include "files/FileBytes.h"
#include "stock/BigArchive.h"

namespace korvane {

// Where INI files come from. Paths are the program's (see NativePath.h).

struct CatalogueSources {
  std::string gameFolder;  // or an archive in its place
  // Further folders and archives, behind the game folder: the original game's data of a modification.
  std::vector<std::string> also{};

  bool operator==(const CatalogueSources&) const = default;
};

// Tells one state of a file from another.
struct FileStamp {
  std::uint64_t size = 0;
  std::filesystem::file_time_type time{};
  bool operator==(const FileStamp&) const = default;
};

struct SourceFile {
  std::string path{};       // "Data\INI\Weapon.ini", as it is spelt where it lies
  std::string container{};  // the folder or archive that has it
  bool archived = false;    // the container is an archive
  bool own = true;          // the container is the game folder or an archive in it
  std::size_t entry = 0;    // in the archive's list
  FileStamp stamp{};        // of the file or of its archive

  bool operator==(const SourceFile&) const = default;
};

struct SkippedFile {
  std::string path;    // whole, as a user reads it
  std::string reason;  // a clause: "it cannot be read"
};

struct SourceList {
  std::vector<SourceFile> files;  // sorted by path, letter case ignored; no path occurs twice
  std::vector<SkippedFile> skipped;
};

// Every ".ini" below "Data\INI" of the sources, in any letter case. Of files with the same path the first
// counts: the game folder's own, then those of its ".big" archives in the order of their names, then the
// further sources in the same way. Links are followed, but no folder is read twice. Nothing when it was asked
// to stop.
std::optional<SourceList> ListSourceFiles(const CatalogueSources& sources, const std::stop_token& stop);

// The loose file at the path below the folder, or nothing when there is none.
std::optional<SourceFile> LooseSource(const std::string& folder, const std::string& path);

// For messages: the file's whole path; of an archived one the archive's, and its own in parentheses.
std::string WholePath(const SourceFile& file);

// A path of the sources as they are compared: backslashes, small letters.
std::string ComparedPath(std::string_view path);

// A text that no INI file needs is refused: larger than this, with a zero byte, or with a longer line.
inline constexpr std::uint64_t kLargestSource = std::uint64_t{256} << 20;
inline constexpr std::size_t kLongestSourceLine = std::size_t{1} << 20;
// Why the bytes are refused, as a clause; empty when they are a text. Their size is not looked at.
std::string WhyNoText(std::string_view bytes);

// Reads files one after the other; an archive stays open for the next file.
class SourceReader {
 public:
  // Why the file cannot be read as a text, as a clause; empty when it was. bytes() is then its text, until
  // the next call.
  std::string read(const SourceFile& file);
  std::string_view bytes() const { return bytes_; }

 private:
  std::string readLoose(const SourceFile& file);
  std::string readArchived(const SourceFile& file);

  FileBytes file_;
  std::string unpacked_;
  std::string archivePath_;
  std::optional<BigArchive> archive_;
  std::string_view bytes_;
};

}  // namespace korvane
