// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/WholeFile.h"

#include <algorithm>
#include <random>

#include "files/NativePath.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

constexpr int kMostLinks = 40;  // links that lead further than this lead in a circle
constexpr int kMostNames = 100;
constexpr std::size_t kBuffer = 64 * 1024;
constexpr std::size_t kDigits = 16;
constexpr std::size_t kLongestName = 255;  // of a file, in the units of its native text
#ifdef _WIN32
constexpr unsigned kUnitMask = 0xFC00;  // native text is UTF-16, where these mark the second half of a pair
constexpr unsigned kFollowing = 0xDC00;
#else
constexpr unsigned kUnitMask = 0xC0;  // native text is UTF-8
constexpr unsigned kFollowing = 0x80;
#endif
constexpr std::string_view kMark = ".korvane-";
constexpr std::string_view kEnding = ".part";
constexpr std::string_view kHexDigits = "0123456789abcdef";
constexpr std::size_t kAdded = kMark.size() + kDigits + kEnding.size();

// A name that fills its folder's limit is cut, between two characters.
fs::path Shortened(const fs::path& name) {
  fs::path::string_type text = name.native();
  if (text.size() + kAdded <= kLongestName) return name;
  std::size_t size = kLongestName - kAdded;
  while (size > 0 && (static_cast<unsigned>(text[size]) & kUnitMask) == kFollowing) --size;
  text.resize(size);
  return text;
}

std::string RandomDigits() {
  static std::random_device device;
  std::string digits;
  for (std::size_t i = 0; i < kDigits; ++i) digits += kHexDigits[device() % kHexDigits.size()];
  return digits;
}

fs::path NameBeside(const fs::path& target) {
  fs::path name = Shortened(target.filename());
  name += kMark;
  name += RandomDigits();
  name += kEnding;
  return target.parent_path() / name;
}

// Whether a file's name is one that NameBeside gives, for the file `of` or, where it is empty, for any.
bool IsNameBeside(const std::string& name, const std::string& of) {
  if (name.size() < kAdded || !name.ends_with(kEnding)) return false;
  const std::string_view added = std::string_view(name).substr(name.size() - kAdded);
  const std::string_view digits = added.substr(kMark.size(), kDigits);
  return added.starts_with(kMark) && digits.find_first_not_of(kHexDigits) == std::string_view::npos &&
         (of.empty() || name.size() == of.size() + kAdded) && name.starts_with(of);
}

void RemoveUnlessHeld(const fs::path& path) {
  DiskFile file;
  if (file.open(path) || file.lock() || file.whyNotAt(path)) return;
#ifdef _WIN32
  static_cast<void>(file.close());  // an open file cannot be removed
#endif
  std::error_code ignored;
  fs::remove(path, ignored);
}

bool IsThere(const fs::path& path) {
  std::error_code error;
  return fs::symlink_status(path, error).type() != fs::file_type::not_found;
}

// For file systems without a renaming that spares what is there: an empty file holds the name meanwhile.
std::error_code RenameOverOwnName(const fs::path& from, const fs::path& to, DiskFile::Access access) {
  DiskFile name;
  std::error_code error = name.create(to, access);
  if (error) return error;
  static_cast<void>(name.close());
  fs::rename(from, to, error);
  std::error_code ignored;
  if (error) fs::remove(to, ignored);
  return error;
}

// Errors of a folder whose entries are not to be changed, or of a file that is a disk of its own.
bool IsForbidden(const std::error_code& error) {
  return error == std::errc::permission_denied || error == std::errc::operation_not_permitted ||
         error == std::errc::device_or_resource_busy;
}

}  // namespace

fs::path BehindLinks(fs::path path) {
  std::error_code error;
  for (int i = 0; i < kMostLinks && fs::is_symlink(path, error); ++i) {
    path = path.parent_path() / fs::read_symlink(path, error);
  }
  return path;
}

bool IsPart(const fs::path& name) {
  return IsNameBeside(Utf8FromPath(name), {});
}

void RemoveLeftovers(const fs::path& folder, const fs::path& name) {
  const std::string of = Utf8FromPath(Shortened(name));
  std::error_code error;
  for (fs::directory_iterator entry(folder.empty() ? "." : folder, error), end; !error && entry != end;
       entry.increment(error)) {
    if (IsNameBeside(Utf8FromPath(entry->path().filename()), of)) RemoveUnlessHeld(entry->path());
  }
}

WholeFile::WholeFile(const fs::path& target, Options options)
    : target_(BehindLinks(target)), options_(options) {
  if (IsThere(target_)) RemoveLeftovers(target_.parent_path(), target_.filename());
  begin();
}

WholeFile::~WholeFile() {
  static_cast<void>(file_.close());
  std::error_code ignored;
  if (!part_.empty()) fs::remove(part_, ignored);
}

// The lock tells other writers that the file is not left over. One of them may look between making it and
// locking it; a file system without locks leaves nobody to remove it either.
void WholeFile::begin() {
  for (int i = 0; i < kMostNames; ++i) {
    const fs::path part = NameBeside(target_);
    error_ = file_.create(part, options_.access);
    if (error_ == std::errc::file_exists) continue;
    if (error_) break;
    static_cast<void>(file_.lock());
    if (file_.whyNotAt(part)) continue;
    part_ = part;
    return;
  }
  onlyInPlace_ = IsForbidden(error_);
  if (!error_) error_ = std::make_error_code(std::errc::file_exists);
}

void WholeFile::run(std::error_code error) {
  if (!error_) error_ = error;
}

void WholeFile::flush() {
  if (!error_) run(file_.write(buffer_));
  buffer_.clear();
}

void WholeFile::write(std::string_view bytes) {
  size_ += bytes.size();
  if (buffer_.size() + bytes.size() >= kBuffer) flush();
  if (bytes.size() < kBuffer) {
    buffer_ += bytes;
  } else if (!error_) {
    run(file_.write(bytes));
  }
}

void WholeFile::rewrite(std::uint64_t offset, std::string_view bytes) {
  flush();
  if (!error_) run(file_.seek(offset));
  if (!error_) run(file_.write(bytes));
  if (!error_) run(file_.seek(size_));
}

std::string WholeFile::reason() const {
  if (!error_) return {};
  return (attributesLost_ ? "its owner, rights or attributes cannot be kept: " : "") +
         ReasonOf(error_, target_);
}

std::string WholeFile::finish() {
  flush();
  if (error_ || finished_) return reason();
  if (IsThere(target_)) {
    run(CopyAttributes(target_, part_));
    onlyInPlace_ = attributesLost_ = static_cast<bool>(error_);
  }
  if (options_.sync && !error_) run(file_.sync());
  finished_ = !error_;
  return reason();
}

// Some systems rename no open file; and without a sync closing is the last to tell that bytes are lost. Else
// the file is closed when it has its name, so that its lock holds until then.
void WholeFile::closeEarly() {
#ifdef _WIN32
  const bool early = true;
#else
  const bool early = !options_.sync;
#endif
  if (early) run(file_.close());
}

std::string WholeFile::replace() {
  if (const std::string why = finish(); !why.empty()) return why;
  closeEarly();
  std::error_code error;
  if (!error_) error = RenameOver(part_, target_);
  onlyInPlace_ = IsForbidden(error);
  return place(error);
}

std::string WholeFile::create() {
  if (const std::string why = finish(); !why.empty()) return why;
  closeEarly();
  if (error_) return reason();
  std::error_code error = RenameUnlessThere(part_, target_);
  if (error == std::errc::function_not_supported) error = RenameOverOwnName(part_, target_, options_.access);
  return place(error);
}

std::string WholeFile::place(std::error_code error) {
  run(error);
  if (error_) return reason();
  part_.clear();
  static_cast<void>(file_.close());
  if (options_.sync)
    static_cast<void>(SyncToDisk(target_.parent_path().empty() ? "." : target_.parent_path()));
  return {};
}

}  // namespace korvane
