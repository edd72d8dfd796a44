// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>

namespace korvane {

// A folder for the files that one fuzz program writes over and over; in memory where there is such a place.
class FuzzFolder {
 public:
  FuzzFolder() {
    namespace fs = std::filesystem;
    const fs::path memory = "/dev/shm";
    folder_ = fs::is_directory(memory) ? memory : fs::temp_directory_path();
    folder_ /= "korvane-fuzz-" + std::to_string(std::random_device()());
    fs::create_directories(folder_ / "Data" / "INI" / "Object");
  }
  ~FuzzFolder() { std::filesystem::remove_all(folder_); }

  std::string path() const { return folder_.string(); }
  std::filesystem::path native(std::string_view relative) const { return folder_ / relative; }

  void write(std::string_view relative, std::string_view bytes) const {
    std::ofstream(folder_ / relative, std::ios::binary) << bytes;
  }

 private:
  std::filesystem::path folder_;
};

// Ends the program as a finding.
inline void Require(bool promise) {
  if (!promise) std::abort();
}

}  // namespace korvane
