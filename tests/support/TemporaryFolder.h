// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <random>
#include <string>
#include <system_error>

namespace korvane {

// An empty folder of a test's own, gone at the end of the test.
class TemporaryFolder {
 public:
  TemporaryFolder() {
    std::random_device chance;
    do {
      path_ = std::filesystem::temp_directory_path() / ("korvane-test-" + std::to_string(chance()));
    } while (!std::filesystem::create_directory(path_));
  }
  ~TemporaryFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::filesystem::path& path() const { return path_; }

 private:
  std::filesystem::path path_;
};

}  // namespace korvane
