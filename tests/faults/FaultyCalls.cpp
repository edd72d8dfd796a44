// SPDX-License-Identifier: GPL-3.0-or-later
// Preloaded into a program, makes its calls to the system fail below one folder. Taken from the environment:
//   FAULTS_BELOW  the folder, an absolute path without links
//   FAULTS        rules, parted by ";", each "KIND FROM HOW ERRNO": from the FROMth call of that kind on (1
//   is
//                 the first; kind "any" counts all calls, "change" those that change the disk)
//                   once   that call fails          on    it and all later ones fail
//                   short  it takes half the bytes  full  it takes half, later ones fail
//                   kill   the process dies before  cut   it takes half, then the process dies
//   FAULTS_FREE   how many bytes can still be written
//   FAULTS_TRACE  a file that gets a line for each call: its kind and what it was about
#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <filesystem>
#include <map>
#include <string>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/uio.h>
#include <sys/xattr.h>
#include <unistd.h>
#include <vector>

namespace {

struct Rule {
  std::string kind;
  std::string how;
  long from = 0;
  int error = 0;
  long seen = 0;
  bool is(const char* what) const { return how == what; }
};

constexpr std::array kChanges = {"create", "write",    "sync",   "rename", "rename2",
                                 "link",   "symlink",  "unlink", "close",  "mkdir",
                                 "chmod",  "truncate", "chown",  "xattr",  "utime"};

std::string Variable(const char* name) {
  const char* value = std::getenv(name);
  return value == nullptr ? "" : value;
}

std::vector<Rule> RulesOf(const std::string& text) {
  std::vector<Rule> rules;
  for (std::size_t at = 0; at < text.size(); at = std::min(text.find(';', at), text.size()) + 1) {
    std::array<char, 16> kind{};
    std::array<char, 16> how{};
    Rule rule;
    if (std::sscanf(text.c_str() + at, "%15s %ld %15s %d", kind.data(), &rule.from, how.data(),
                    &rule.error) != 4)
      std::abort();  // a test that is wrong
    rule.kind = kind.data();
    rule.how = how.data();
    rules.push_back(rule);
  }
  return rules;
}

struct State {
  std::string below = Variable("FAULTS_BELOW");
  std::vector<Rule> rules = RulesOf(Variable("FAULTS"));
  std::string trace = Variable("FAULTS_TRACE");
  bool limited = !Variable("FAULTS_FREE").empty();
  std::size_t free = std::strtoul(Variable("FAULTS_FREE").c_str(), nullptr, 10);
  std::array<bool, 4096> watched{};  // open files below the folder, by number
  // Numbers of our own for files with bytes that are not on the disk yet, by the program's number or, once it
  // has closed them, by a negative one.
  std::map<int, int> unsynced;
};

State& Now() {
  static State state;
  return state;
}

bool IsBelow(const char* path) {
  const std::string& below = Now().below;
  if (below.empty() || path == nullptr) return false;
  std::string full = path;
  std::array<char, PATH_MAX> folder{};
  if (path[0] != '/' && getcwd(folder.data(), folder.size()) != nullptr) full = folder.data() + ('/' + full);
  full = std::filesystem::path(full).lexically_normal().string();
  return full.compare(0, below.size(), below) == 0 &&
         (full.size() == below.size() || full[below.size()] == '/');
}

bool IsWatched(int file) {
  return file >= 0 && file < static_cast<int>(Now().watched.size()) &&
         Now().watched[static_cast<std::size_t>(file)];
}

bool IsBelow(int folder, const char* path) {
  if (path == nullptr || path[0] == '\0') return IsWatched(folder);
  return path[0] == '/' || folder == AT_FDCWD ? IsBelow(path) : IsWatched(folder);
}

int Watched(int file, bool watch) {
  if (file >= 0 && file < static_cast<int>(Now().watched.size()))
    Now().watched[static_cast<std::size_t>(file)] = watch;
  return file;
}

// Straight to the kernel, so that nothing of this is seen as the program's own doing.
void Trace(std::string_view kind, std::string_view about) {
  if (Now().trace.empty()) return;
  const std::string line = std::string(kind).append(" ").append(about).append("\n");
  const long file = syscall(SYS_openat, AT_FDCWD, Now().trace.c_str(), O_WRONLY | O_CREAT | O_APPEND, 0600);
  syscall(SYS_write, file, line.data(), line.size());
  syscall(SYS_close, file);
}

void Wrote(int file) {
  if (!Now().unsynced.contains(file)) Now().unsynced[file] = static_cast<int>(syscall(SYS_dup, file));
}

void Lose(int own) {
  syscall(SYS_ftruncate, own, 0);
}

// The program's number may be another file's from now on.
void Closed(int file) {
  const auto found = Now().unsynced.find(file);
  if (found == Now().unsynced.end()) return;
  const int own = found->second;
  Now().unsynced.erase(found);
  Now().unsynced[-1 - own] = own;
}

[[noreturn]] void Die() {
  syscall(SYS_kill, getpid(), SIGKILL);
  std::abort();
}

bool Counts(const Rule& rule, std::string_view kind) {
  return rule.kind == "any" || rule.kind == kind ||
         (rule.kind == "change" && std::find(kChanges.begin(), kChanges.end(), kind) != kChanges.end());
}

struct Verdict {
  bool fails = false;
  bool half = false;
  bool diesAfter = false;
};

void Judge(Rule& rule, Verdict& verdict) {
  const bool now = rule.seen == rule.from;
  const bool later = rule.seen > rule.from;
  if (now && rule.is("power")) {
    for (const auto& [file, own] : Now().unsynced) Lose(own);
  }
  if (now && (rule.is("kill") || rule.is("power"))) Die();
  verdict.half = verdict.half || (now && (rule.is("short") || rule.is("full") || rule.is("cut")));
  verdict.diesAfter = verdict.diesAfter || (now && rule.is("cut"));
  if ((now && rule.is("once")) || ((now || later) && rule.is("on")) || (later && rule.is("full"))) {
    verdict.fails = true;
    errno = rule.error;
  }
}

Verdict VerdictOn(std::string_view kind, std::string_view about) {
  Trace(kind, about);
  Verdict verdict;
  for (Rule& rule : Now().rules) {
    if (!Counts(rule, kind)) continue;
    ++rule.seen;
    Judge(rule, verdict);
  }
  return verdict;
}

bool Refused(std::string_view kind, bool concerned, const char* about) {
  return concerned && VerdictOn(kind, about == nullptr ? "" : about).fails;
}

std::size_t Affordable(std::size_t count) {
  State& state = Now();
  if (!state.limited) return count;
  const std::size_t taken = std::min(count, state.free);
  state.free -= taken;
  if (taken == 0 && count > 0) errno = ENOSPC;
  return taken;
}

// Lets `call` move as many of the `count` bytes as the rules allow.
template <typename Call>
ssize_t Moved(const char* kind, int file, std::size_t count, Call call) {
  if (!IsWatched(file)) return call(count);
  const Verdict verdict = VerdictOn(kind, std::to_string(count));
  if (verdict.fails) return -1;
  const std::size_t wanted = verdict.half ? count / 2 : count;
  const std::size_t allowed = std::string_view(kind) == "write" ? Affordable(wanted) : wanted;
  if (allowed == 0 && wanted > 0) return -1;
  const ssize_t moved = call(allowed);
  if (std::string_view(kind) == "write") Wrote(file);
  if (verdict.diesAfter) Die();
  return moved;
}

template <typename Function>
Function* Real(const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

const char* KindOfOpening(int flags) {
  return (flags & (O_CREAT | O_TRUNC)) != 0 || (flags & O_TMPFILE) == O_TMPFILE ? "create" : "open";
}

template <typename Open>
int Opened(bool concerned, const char* path, int flags, Open open) {
  if (Refused(KindOfOpening(flags), concerned, path)) return -1;
  return Watched(open(), concerned);
}

template <typename Open>
std::FILE* OpenedStream(const char* path, const char* mode, Open open) {
  const bool concerned = IsBelow(path);
  if (Refused(std::strchr(mode, 'w') != nullptr ? "create" : "open", concerned, path)) return nullptr;
  std::FILE* stream = open(path, mode);
  if (stream != nullptr) Watched(fileno(stream), concerned);
  return stream;
}

}  // namespace

// Takes the variables anew, for a process that has set them for itself.
extern "C" void FaultsBegin() {
  Now() = State();
}

// The last argument is what C++ is told of the C function: noexcept or nothing.
#define FAULTY(kind, name, parameters, arguments, concerned, about, ...) \
  extern "C" int name parameters __VA_ARGS__ {                           \
    static auto* const real = Real<int parameters __VA_ARGS__>(#name);   \
    return Refused(kind, concerned, about) ? -1 : real arguments;        \
  }
#define FAULTY_OPEN(name)                                                               \
  extern "C" int name(const char* path, int flags, ...) {                               \
    static auto* const real = Real<int(const char*, int, ...)>(#name);                  \
    va_list rest;                                                                       \
    va_start(rest, flags);                                                              \
    const mode_t mode = va_arg(rest, mode_t);                                           \
    va_end(rest);                                                                       \
    return Opened(IsBelow(path), path, flags, [&] { return real(path, flags, mode); }); \
  }
#define FAULTY_OPENAT(name)                                                                             \
  extern "C" int name(int folder, const char* path, int flags, ...) {                                   \
    static auto* const real = Real<int(int, const char*, int, ...)>(#name);                             \
    va_list rest;                                                                                       \
    va_start(rest, flags);                                                                              \
    const mode_t mode = va_arg(rest, mode_t);                                                           \
    va_end(rest);                                                                                       \
    return Opened(IsBelow(folder, path), path, flags, [&] { return real(folder, path, flags, mode); }); \
  }
#define FAULTY_FOPEN(name)                                                       \
  extern "C" std::FILE* name(const char* path, const char* mode) {               \
    static auto* const real = Real<std::FILE*(const char*, const char*)>(#name); \
    return OpenedStream(path, mode, real);                                       \
  }
#define FAULTY_MOVE(kind, name, Bytes)                                                    \
  extern "C" ssize_t name(int file, Bytes bytes, std::size_t count) {                     \
    static auto* const real = Real<ssize_t(int, Bytes, std::size_t)>(#name);              \
    return Moved(kind, file, count, [&](std::size_t n) { return real(file, bytes, n); }); \
  }
#define FAULTY_MOVE_AT(kind, name, Bytes)                                                     \
  extern "C" ssize_t name(int file, Bytes bytes, std::size_t count, off_t at) {               \
    static auto* const real = Real<ssize_t(int, Bytes, std::size_t, off_t)>(#name);           \
    return Moved(kind, file, count, [&](std::size_t n) { return real(file, bytes, n, at); }); \
  }

FAULTY_OPEN(open)
FAULTY_OPEN(open64)
FAULTY_OPENAT(openat)
FAULTY_OPENAT(openat64)
FAULTY_FOPEN(fopen)
FAULTY_FOPEN(fopen64)
FAULTY_MOVE("write", write, const void*)
FAULTY_MOVE_AT("write", pwrite, const void*)
FAULTY_MOVE_AT("write", pwrite64, const void*)
FAULTY_MOVE("read", read, void*)
FAULTY_MOVE_AT("read", pread, void*)
FAULTY_MOVE_AT("read", pread64, void*)
FAULTY("lock", flock, (int file, int what), (file, what), IsWatched(file), "", noexcept)
FAULTY("truncate", ftruncate, (int file, off_t size), (file, size), IsWatched(file), "", noexcept)
FAULTY("truncate", ftruncate64, (int file, off64_t size), (file, size), IsWatched(file), "", noexcept)
FAULTY("truncate", truncate, (const char* path, off_t size), (path, size), IsBelow(path), path, noexcept)
FAULTY("rename", rename, (const char* from, const char* to), (from, to), IsBelow(from) || IsBelow(to), to,
       noexcept)
FAULTY("rename", renameat, (int a, const char* from, int b, const char* to), (a, from, b, to),
       IsBelow(a, from) || IsBelow(b, to), to, noexcept)
FAULTY("rename2", renameat2, (int a, const char* from, int b, const char* to, unsigned flags),
       (a, from, b, to, flags), IsBelow(a, from) || IsBelow(b, to), to, noexcept)
FAULTY("link", link, (const char* from, const char* to), (from, to), IsBelow(to), to, noexcept)
FAULTY("link", linkat, (int a, const char* from, int b, const char* to, int flags), (a, from, b, to, flags),
       IsBelow(b, to), to, noexcept)
FAULTY("symlink", symlink, (const char* from, const char* to), (from, to), IsBelow(to), to, noexcept)
FAULTY("unlink", unlink, (const char* path), (path), IsBelow(path), path, noexcept)
FAULTY("unlink", unlinkat, (int folder, const char* path, int flags), (folder, path, flags),
       IsBelow(folder, path), path, noexcept)
FAULTY("unlink", remove, (const char* path), (path), IsBelow(path), path, noexcept)
FAULTY("unlink", rmdir, (const char* path), (path), IsBelow(path), path, noexcept)
FAULTY("mkdir", mkdir, (const char* path, mode_t mode), (path, mode), IsBelow(path), path, noexcept)
FAULTY("chmod", chmod, (const char* path, mode_t mode), (path, mode), IsBelow(path), path, noexcept)
FAULTY("chmod", fchmod, (int file, mode_t mode), (file, mode), IsWatched(file), "", noexcept)
FAULTY("chmod", fchmodat, (int folder, const char* path, mode_t mode, int flags), (folder, path, mode, flags),
       IsBelow(folder, path), path, noexcept)
FAULTY("chown", chown, (const char* path, uid_t user, gid_t group), (path, user, group), IsBelow(path), path,
       noexcept)
FAULTY("chown", fchown, (int file, uid_t user, gid_t group), (file, user, group), IsWatched(file), "",
       noexcept)
FAULTY("xattr", fsetxattr, (int file, const char* name, const void* value, std::size_t size, int flags),
       (file, name, value, size, flags), IsWatched(file), name, noexcept)
FAULTY("chown", lchown, (const char* path, uid_t user, gid_t group), (path, user, group), IsBelow(path), path,
       noexcept)
FAULTY("chown", fchownat, (int folder, const char* path, uid_t user, gid_t group, int flags),
       (folder, path, user, group, flags), IsBelow(folder, path), path, noexcept)
FAULTY("xattr", setxattr,
       (const char* path, const char* name, const void* value, std::size_t size, int flags),
       (path, name, value, size, flags), IsBelow(path), name, noexcept)
FAULTY("xattr", lsetxattr,
       (const char* path, const char* name, const void* value, std::size_t size, int flags),
       (path, name, value, size, flags), IsBelow(path), name, noexcept)
FAULTY("xattr", removexattr, (const char* path, const char* name), (path, name), IsBelow(path), name,
       noexcept)
FAULTY("xattr", lremovexattr, (const char* path, const char* name), (path, name), IsBelow(path), name,
       noexcept)
FAULTY("access", faccessat, (int folder, const char* path, int mode, int flags), (folder, path, mode, flags),
       IsBelow(folder, path), path, noexcept)
FAULTY("access", access, (const char* path, int mode), (path, mode), IsBelow(path), path, noexcept)
FAULTY("reserve", fallocate, (int file, int mode, off_t at, off_t size), (file, mode, at, size),
       IsWatched(file), "")
FAULTY("utime", utimensat, (int folder, const char* path, const timespec* times, int flags),
       (folder, path, times, flags), IsBelow(folder, path), path, noexcept)
FAULTY("utime", futimens, (int file, const timespec* times), (file, times), IsWatched(file), "", noexcept)
FAULTY("stat", stat, (const char* path, struct stat* result), (path, result), IsBelow(path), path, noexcept)
FAULTY("stat", stat64, (const char* path, struct stat64* result), (path, result), IsBelow(path), path,
       noexcept)
FAULTY("stat", lstat, (const char* path, struct stat* result), (path, result), IsBelow(path), path, noexcept)
FAULTY("stat", lstat64, (const char* path, struct stat64* result), (path, result), IsBelow(path), path,
       noexcept)
FAULTY("stat", fstat, (int file, struct stat* result), (file, result), IsWatched(file), "", noexcept)
FAULTY("stat", fstat64, (int file, struct stat64* result), (file, result), IsWatched(file), "", noexcept)
FAULTY("stat", statx, (int folder, const char* path, int flags, unsigned mask, struct statx* result),
       (folder, path, flags, mask, result), IsBelow(folder, path), path, noexcept)

extern "C" ssize_t writev(int file, const iovec* parts, int count) {
  static auto* const real = Real<ssize_t(int, const iovec*, int)>("writev");
  if (!IsWatched(file)) return real(file, parts, count);
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes.append(static_cast<const char*>(parts[i].iov_base), parts[i].iov_len);
  return write(file, bytes.data(), bytes.size());
}

// The bytes are gone when the disk refuses them. What it takes is not waited for, which takes long.
static bool Synced(int file) {
  const bool refused = Refused("sync", true, "");
  const auto found = Now().unsynced.find(file);
  if (found == Now().unsynced.end()) return !refused;
  if (refused) Lose(found->second);
  syscall(SYS_close, found->second);
  Now().unsynced.erase(found);
  return !refused;
}

#define FAULTY_SYNC(name)                            \
  extern "C" int name(int file) {                    \
    static auto* const real = Real<int(int)>(#name); \
    if (!IsWatched(file)) return real(file);         \
    return Synced(file) ? 0 : -1;                    \
  }

FAULTY_SYNC(fsync)
FAULTY_SYNC(fdatasync)

// A file is closed even where that fails, as Linux has it. Bytes that were not synced can be lost then.
static bool ClosesBadly(int file) {
  const bool refused = Refused("close", IsWatched(file), "");
  if (refused && Now().unsynced.contains(file)) Lose(Now().unsynced[file]);
  Closed(file);
  return refused;
}

extern "C" int close(int file) {
  static auto* const real = Real<int(int)>("close");
  const bool refused = ClosesBadly(file);
  const int error = errno;
  Watched(file, false);
  const int result = real(file);
  if (refused) errno = error;
  return refused ? -1 : result;
}

extern "C" DIR* opendir(const char* path) {
  static auto* const real = Real<DIR*(const char*)>("opendir");
  return Refused("open", IsBelow(path), path) ? nullptr : real(path);
}

#define FAULTY_ASK(name, parameters, arguments, concerned, about)       \
  extern "C" ssize_t name parameters noexcept {                         \
    static auto* const real = Real<ssize_t parameters>(#name);          \
    return Refused("getxattr", concerned, about) ? -1 : real arguments; \
  }

FAULTY_ASK(fgetxattr, (int file, const char* name, void* value, std::size_t size), (file, name, value, size),
           IsWatched(file), name)
FAULTY_ASK(getxattr, (const char* path, const char* name, void* value, std::size_t size),
           (path, name, value, size), IsBelow(path), name)
FAULTY_ASK(lgetxattr, (const char* path, const char* name, void* value, std::size_t size),
           (path, name, value, size), IsBelow(path), name)
FAULTY_ASK(flistxattr, (int file, char* list, std::size_t size), (file, list, size), IsWatched(file), "")
FAULTY_ASK(listxattr, (const char* path, char* list, std::size_t size), (path, list, size), IsBelow(path),
           path)
FAULTY_ASK(llistxattr, (const char* path, char* list, std::size_t size), (path, list, size), IsBelow(path),
           path)
