// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <optional>
#include <set>
#include <stdexcept>

#include "Commands.h"
#include "Container.h"
#include "Printable.h"
#include "Progress.h"
#include "files/NativePath.h"
#include "files/WholeFile.h"
#include "ini/IniText.h"
#include "stock/RestorePath.h"

namespace korvane {

namespace {

std::string Comparable(std::string path) {
  std::replace(path.begin(), path.end(), '/', '\\');
  return ToLowerAscii(path);
}

// One extraction under way: what is still wanted, and how it went so far.
class Extraction {
 public:
  explicit Extraction(const ExtractOptions& options) : options_(options) {
    for (const std::string& path : options.files) notFound_.insert(Comparable(path));
  }

  // Writes the file at which the container stands, unless it is there already or not wanted.
  void take(Container& files) {
    const std::string path = files.path();
    if (!options_.files.empty() && notFound_.erase(Comparable(path)) == 0) return;
    const std::optional<std::string> target = SafeTarget(options_.folder, path);
    if (!target) throw std::runtime_error(path + ": would leave the folder");
    if (!options_.overwrite && FileExists(ProgramPath(*target))) {
      ++kept_;
      return;
    }
    write(NativePath(ProgramPath(*target)), files);
  }

  void fail(const std::string& why) {
    std::cerr << Printable(why) << '\n';
    ++failed_;
  }

  bool finish() {
    for (const std::string& path : notFound_) fail(path + ": not found");
    std::cout << Counted(written_, "file") << " extracted, " << kept_ << " were there already, " << failed_
              << " failed\n";
    return failed_ == 0;
  }

 private:
  void write(const std::filesystem::path& target, Container& files) {
    std::filesystem::create_directories(target.parent_path());
    // What can be extracted once more need not be forced to the disk; what it replaces cannot.
    WholeFile file(target, {.sync = FileExists(ProgramPath(ProgramText(target)))});
    files.read([&file](std::string_view piece) { file.write(piece); });
    const std::string reason = options_.overwrite ? file.replace() : file.create();
    if (!reason.empty()) throw std::runtime_error(ProgramText(target) + ": " + reason);
    ++written_;
  }

  const ExtractOptions& options_;
  std::set<std::string> notFound_;
  std::uint64_t written_ = 0;
  std::uint64_t kept_ = 0;
  std::uint64_t failed_ = 0;
};

}  // namespace

bool Extract(const ExtractOptions& options) {
  const auto files = OpenContainer(options.container);
  std::filesystem::create_directories(NativePath(ProgramPath(options.folder)));
  Extraction extraction(options);
  Progress progress("Extracting", files->count());
  for (std::int64_t i = 0; i < files->count(); ++i) {
    try {
      files->goTo(i);
      extraction.take(*files);
    } catch (const std::runtime_error& error) {
      progress.clear();
      extraction.fail(error.what());
    }
    progress.stepDone();
  }
  progress.clear();
  return extraction.finish();
}

}  // namespace korvane
