// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/SafeReplace.h"

#include "files/DiskFile.h"
#include "files/FileBytes.h"
#include "files/WholeFile.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

std::string WhyNotReplaceable(const fs::path& target) {
  std::error_code error;
  const fs::file_type type = fs::symlink_status(target, error).type();
  if (type == fs::file_type::not_found) return {};
  if (error) return error.message();
  if (type == fs::file_type::directory) return std::make_error_code(std::errc::is_a_directory).message();
  if (type != fs::file_type::regular) return "it is not an ordinary file";
  const std::error_code why = WhyNotWritable(target);
  return why ? ReasonOf(why, target) : std::string();
}

std::error_code Overwrite(DiskFile& file, std::string_view bytes) {
  std::error_code error = file.seek(0);
  if (!error) error = file.write(bytes);
  if (!error) error = file.truncate(bytes.size());
  return error ? error : file.sync();
}

// Nothing is written over before there is space for all of the new bytes.
std::string WriteInPlace(const fs::path& target, std::string_view bytes, const KeepFormer& keep) {
  if (std::string why = keep(ReplaceWay::inPlace); !why.empty()) return why;
  FileBytes old;
  if (!old.readNative(target)) return "its former version cannot be read";
  DiskFile file;
  std::error_code error = file.open(target);
  if (!error) error = file.reserve(bytes.size());
  if (error) return ReasonOf(error, target);
  error = Overwrite(file, bytes);
  if (!error) return {};
  const std::error_code damaged = Overwrite(file, old.bytes());
  return error.message() + (damaged ? "; its former text could not be put back: " + damaged.message() : "");
}

}  // namespace

std::string SafeReplace(const fs::path& path, std::string_view bytes, const KeepFormer& keep) {
  const fs::path target = BehindLinks(path);
  if (std::string why = WhyNotReplaceable(target); !why.empty()) return why;
  std::error_code error;  // one that hides whether the file is there counts as if it were
  const bool there = fs::symlink_status(target, error).type() != fs::file_type::not_found;
  WholeFile file(target);
  file.write(bytes);
  std::string reason = file.finish();
  if (reason.empty()) {
    if (there && keep) reason = keep(ReplaceWay::renamed);
    if (!reason.empty()) return reason;
    reason = file.replace();
  }
  const bool inPlace = file.onlyInPlace() && there && keep;
  return inPlace ? WriteInPlace(target, bytes, keep) : reason;
}

}  // namespace korvane
