// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string_view>

namespace korvane {

// A file that is written piece by piece beside its place ("Data.DBF.part") and takes its place whole, or not
// at all. For the command-line tool, whose files may be too large for memory; the
// program writes its user's files through platform/FileWriter. Every failure is a
// std::filesystem::filesystem_error.
class WholeFile {
 public:
  // Begins the file. The folder must exist; what stands at the place stays there until commit().
  explicit WholeFile(std::filesystem::path target);
  // Without commit() nothing is left.
  ~WholeFile();
  WholeFile(const WholeFile&) = delete;
  WholeFile& operator=(const WholeFile&) = delete;

  void write(std::string_view bytes);
  // Writes over bytes that have been written before.
  void rewrite(std::uint64_t offset, std::string_view bytes);
  std::uint64_t size() const { return size_; }

  // Puts the file in its place. What stood there before is given up only when the new bytes are on the disk;
  // a new file gets there as the system sees fit. Nothing can be written any more.
  void commit();

 private:
  struct Close {
    void operator()(std::FILE* file) const { std::fclose(file); }
  };

  [[noreturn]] void fail() const;

  std::filesystem::path target_;
  std::filesystem::path part_;
  std::unique_ptr<std::FILE, Close> file_;
  std::uint64_t size_ = 0;
};

}  // namespace korvane
