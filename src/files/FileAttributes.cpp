// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cerrno>
#include <string>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "files/DiskFile.h"

#ifdef __linux__
#include <sys/xattr.h>
#endif

namespace korvane {

namespace fs = std::filesystem;

namespace {

constexpr mode_t kRights = 07777;

std::error_code ErrorUnless(bool done) {
  return done ? std::error_code() : std::error_code(errno, std::generic_category());
}

bool SameOwnerAndRights(const struct stat& a, const struct stat& b) {
  return a.st_uid == b.st_uid && a.st_gid == b.st_gid && (a.st_mode & kRights) == (b.st_mode & kRights);
}

#ifdef __linux__

// The access list is among them, under a name of the system's.
std::error_code NamesOf(const fs::path& path, std::vector<std::string>& names) {
  const ssize_t size = ::llistxattr(path.c_str(), nullptr, 0);
  if (size < 0) return ErrorUnless(errno == ENOTSUP);
  std::string text(static_cast<std::size_t>(size), '\0');
  const ssize_t got = ::llistxattr(path.c_str(), text.data(), text.size());
  if (got < 0) return ErrorUnless(false);
  text.resize(static_cast<std::size_t>(got));
  for (std::size_t start = 0; start < text.size(); start += names.back().size() + 1) {
    names.emplace_back(text.c_str() + start);
  }
  return {};
}

std::error_code ValueOf(const fs::path& path, const std::string& name, std::string& value) {
  const ssize_t size = ::lgetxattr(path.c_str(), name.c_str(), nullptr, 0);
  if (size < 0) return ErrorUnless(false);
  value.resize(static_cast<std::size_t>(size));
  const ssize_t got = ::lgetxattr(path.c_str(), name.c_str(), value.data(), value.size());
  if (got >= 0) value.resize(static_cast<std::size_t>(got));
  return ErrorUnless(got >= 0);
}

// What the system has given the new file by itself need not be set, which is not for every user to do.
std::error_code CopyValue(const fs::path& from, const fs::path& to, const std::string& name) {
  std::string wanted;
  if (const std::error_code error = ValueOf(from, name, wanted)) return error;
  std::string present;
  if (!ValueOf(to, name, present) && present == wanted) return {};
  return ErrorUnless(::lsetxattr(to.c_str(), name.c_str(), wanted.data(), wanted.size(), 0) == 0);
}

std::error_code CopyExtended(const fs::path& from, const fs::path& to) {
  std::vector<std::string> wanted;
  std::vector<std::string> present;
  if (const std::error_code error = NamesOf(from, wanted)) return error;
  if (const std::error_code error = NamesOf(to, present)) return error;
  for (const std::string& name : present) {
    const bool stays = std::find(wanted.begin(), wanted.end(), name) != wanted.end();
    if (!stays && ::lremovexattr(to.c_str(), name.c_str()) != 0) return ErrorUnless(false);
  }
  for (const std::string& name : wanted) {
    if (const std::error_code error = CopyValue(from, to, name)) return error;
  }
  return {};
}

#else

std::error_code CopyExtended(const fs::path&, const fs::path&) {
  return {};
}

#endif

}  // namespace

std::error_code CopyAttributes(const fs::path& from, const fs::path& to) {
  struct stat wanted {};
  struct stat present {};
  if (::lstat(from.c_str(), &wanted) != 0 || ::lstat(to.c_str(), &present) != 0) return ErrorUnless(false);
  const bool sameOwner = wanted.st_uid == present.st_uid && wanted.st_gid == present.st_gid;
  if (!sameOwner && ::lchown(to.c_str(), wanted.st_uid, wanted.st_gid) != 0) return ErrorUnless(false);
  if (::chmod(to.c_str(), wanted.st_mode & kRights) != 0) return ErrorUnless(false);
  if (const std::error_code error = CopyExtended(from, to)) return error;
  if (::lstat(to.c_str(), &present) != 0) return ErrorUnless(false);
  if (SameOwnerAndRights(wanted, present)) return {};
  return std::make_error_code(std::errc::operation_not_permitted);  // a right that the system took silently
}

}  // namespace korvane
