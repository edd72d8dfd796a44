// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#ifndef _WIN32

#include <csignal>
#include <sys/resource.h>

namespace korvane {

// The largest file that this process may write, as if the disk were full behind it.
class FileSizeLimit {
 public:
  explicit FileSizeLimit(rlim_t size) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{size, before_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }
  FileSizeLimit(const FileSizeLimit&) = delete;
  FileSizeLimit& operator=(const FileSizeLimit&) = delete;

 private:
  rlimit before_{};
};

}  // namespace korvane

#endif
