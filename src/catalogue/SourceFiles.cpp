// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/SourceFiles.h"

#include <algorithm>
#include <cstring>
#include <exception>
#include <set>

#include "catalogue/FoldedText.h"
#include "files/DiskFile.h"
#include "files/NativePath.h"
#include "ini/DataFiles.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kIniEnding = ".ini";
constexpr std::string_view kArchiveEnding = ".big";
constexpr int kDeepestFolder = 64;

bool EndsWithFolded(std::string_view text, std::string_view ending) {
  return text.size() >= ending.size() && EqualFolded(text.substr(text.size() - ending.size()), ending);
}

// The INI folder without the backslash before it.
std::string_view IniFolder() {
  return kIniFolder.substr(1);
}

FileStamp StampOf(const fs::path& file) {
  std::error_code error;
  const std::uint64_t size = fs::file_size(file, error);
  if (error) return {};
  const fs::file_time_type time = fs::last_write_time(file, error);
  // A file may be written again within the tick of its clock: what is fresh is not known by its time.
  constexpr std::chrono::seconds kTick(2);
  if (error || fs::file_time_type::clock::now() - time < kTick) return {size, {}};
  return {size, time};
}

std::vector<fs::directory_entry> EntriesOf(const fs::path& folder, std::error_code& error) {
  std::vector<fs::directory_entry> entries;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
    entries.push_back(*entry);
  std::sort(entries.begin(), entries.end());
  return entries;
}

bool HasParentFolder(std::string_view path) {
  return path.find("\\..\\") != std::string_view::npos || path.find("\\.\\") != std::string_view::npos;
}

std::string WithBackslashes(std::string_view path) {
  std::string text(path);
  std::replace(text.begin(), text.end(), '/', '\\');
  return text;
}

class Lister {
 public:
  explicit Lister(const std::stop_token& stop) : stop_(stop) {}

  void addSource(const std::string& source, bool own) {
    if (EndsWithFolded(source, kArchiveEnding) && !FolderExists(ProgramPath(source))) {
      addArchive(source, own);
    } else if (FolderExists(ProgramPath(source))) {
      addFolder(source, own);
    } else {
      skip(source, "it is no folder and no archive");
    }
  }

  SourceList take() {
    std::sort(list_.files.begin(), list_.files.end(),
              [](const SourceFile& a, const SourceFile& b) { return LessFolded(a.path, b.path); });
    return std::move(list_);
  }

 private:
  void addFolder(const std::string& folder, bool own) {
    own_ = own;
    container_ = folder;
    const fs::path native = NativePath(ProgramPath(folder));
    for (const fs::path& ini : iniFolders(native)) walk(ini, pathBelow(native, ini), 0);
    addArchives(native);
  }

  void skip(const std::string& path, std::string reason) {
    list_.skipped.push_back({path, std::move(reason)});
  }

  static std::string pathBelow(const fs::path& folder, const fs::path& file) {
    return ProgramText(file.lexically_relative(folder));
  }

  static std::vector<fs::path> matching(const std::vector<fs::path>& folders, std::string_view name) {
    std::vector<fs::path> found;
    for (const fs::path& folder : folders) {
      std::error_code error;
      for (const fs::directory_entry& entry : EntriesOf(folder, error))
        if (entry.is_directory(error) && EqualFolded(ProgramText(entry.path().filename()), name))
          found.push_back(entry.path());
    }
    return found;
  }

  // Where letter case matters there may be several.
  static std::vector<fs::path> iniFolders(const fs::path& native) {
    return matching(matching({native}, "data"), "ini");
  }

  void walk(const fs::path& folder, const std::string& below, int depth) {
    std::error_code error;
    const fs::path real = RealPath(folder, error);
    if (error) return skip(ProgramText(folder), "it cannot be read");
    if (depth > kDeepestFolder || !walked_.insert(real).second) {
      return skip(ProgramText(folder), "it leads to a folder that is read already");
    }
    for (const fs::directory_entry& entry : EntriesOf(folder, error)) {
      if (stop_.stop_requested()) return;
      take(entry, below + '\\' + ProgramText(entry.path().filename()), depth);
    }
    if (error) skip(ProgramText(folder), "it cannot be read");
  }

  void take(const fs::directory_entry& entry, const std::string& path, int depth) {
    std::error_code error;
    if (entry.is_directory(error)) {
      walk(entry.path(), path, depth + 1);
    } else if (EndsWithFolded(path, kIniEnding)) {
      if (entry.is_regular_file(error)) {
        addLoose(entry.path(), path);
      } else {
        skip(ProgramText(entry.path()), "it is no ordinary file");
      }
    }
  }

  void addLoose(const fs::path& native, const std::string& path) {
    if (seen_.insert(ComparedPath(path)).second) {
      list_.files.push_back({.path = path, .container = container_, .own = own_, .stamp = StampOf(native)});
    } else if (own_) {
      skip(ProgramText(native), "another file has this path in other letter case");
    }
  }

  void addArchives(const fs::path& folder) {
    std::error_code error;
    std::vector<fs::path> archives;
    for (const fs::directory_entry& entry : EntriesOf(folder, error))
      if (entry.is_regular_file(error) && EndsWithFolded(ProgramText(entry.path()), kArchiveEnding))
        archives.push_back(entry.path());
    std::stable_sort(archives.begin(), archives.end(), [](const fs::path& a, const fs::path& b) {
      return LessFolded(ProgramText(a), ProgramText(b));
    });
    for (const fs::path& archive : archives) addArchive(ProgramText(archive), own_);
  }

  void addArchive(const std::string& path, bool own) {
    if (stop_.stop_requested()) return;
    try {
      const BigArchive archive(path);
      const FileStamp stamp = StampOf(NativePath(ProgramPath(path)));
      for (std::size_t i = 0; i < archive.entries().size(); ++i)
        addEntry(archive.entries()[i].path,
                 {.container = path, .archived = true, .own = own, .entry = i, .stamp = stamp});
    } catch (const std::exception&) {
      skip(path, "it cannot be read as an archive");
    }
  }

  void addEntry(const std::string& name, SourceFile file) {
    file.path = WithBackslashes(name);
    const std::string compared = ComparedPath(file.path);
    if (!compared.starts_with(ComparedPath(IniFolder())) || !compared.ends_with(kIniEnding)) return;
    if (HasParentFolder(compared)) {
      skip(WholePath(file), "its path leads elsewhere");
    } else if (seen_.insert(compared).second) {
      list_.files.push_back(std::move(file));
    }
  }

  const std::stop_token& stop_;
  SourceList list_;
  bool own_ = true;
  std::string container_;
  std::set<std::string> seen_;
  std::set<fs::path> walked_;
};

}  // namespace

std::string ComparedPath(std::string_view path) {
  std::string text = WithBackslashes(path);
  std::transform(text.begin(), text.end(), text.begin(), FoldedByte);
  return text;
}

std::optional<SourceList> ListSourceFiles(const CatalogueSources& sources, const std::stop_token& stop) {
  Lister lister(stop);
  lister.addSource(sources.gameFolder, true);
  for (const std::string& source : sources.also) lister.addSource(source, false);
  if (stop.stop_requested()) return std::nullopt;
  return lister.take();
}

std::optional<SourceFile> LooseSource(const std::string& folder, const std::string& path) {
  if (!FileExists(ProgramPath(folder + '\\' + path))) return std::nullopt;
  return SourceFile{
      .path = path, .container = folder, .stamp = StampOf(NativePath(ProgramPath(folder + '\\' + path)))};
}

std::string WholePath(const SourceFile& file) {
  return file.archived ? file.container + " (" + file.path + ")" : file.container + '\\' + file.path;
}

std::string WhyNoText(std::string_view bytes) {
  if (!bytes.empty() && std::memchr(bytes.data(), '\0', bytes.size()) != nullptr) return "it is no text";
  while (bytes.size() > kLongestSourceLine) {
    const std::size_t end = bytes.find_last_of("\r\n", kLongestSourceLine);
    if (end == std::string_view::npos) return "it has a line of more than 1 MB";
    bytes.remove_prefix(end + 1);
  }
  return {};
}

std::string SourceReader::read(const SourceFile& file) {
  bytes_ = {};
  std::string reason;
  try {
    reason = file.archived ? readArchived(file) : readLoose(file);
  } catch (const std::exception&) {  // a damaged archive, no memory
    reason = "it cannot be read";
  }
  if (reason.empty()) reason = WhyNoText(bytes_);
  if (!reason.empty()) bytes_ = {};
  return reason;
}

std::string SourceReader::readLoose(const SourceFile& file) {
  const ProgramPath path(file.container + '\\' + file.path);
  std::error_code error;
  if (const auto size = fs::file_size(NativePath(path), error); !error && size > kLargestSource)
    return "it is larger than 256 MB";
  if (!file_.read(path, {})) return "it cannot be read";
  bytes_ = file_.bytes();
  return {};
}

std::string SourceReader::readArchived(const SourceFile& file) {
  if (archivePath_ != file.container) {
    archive_.emplace(file.container);
    archivePath_ = file.container;
  }
  const auto& entries = archive_->entries();
  const auto isIt = [&](const BigArchive::Entry& entry) { return WithBackslashes(entry.path) == file.path; };
  auto entry =
      file.entry < entries.size() ? entries.begin() + static_cast<std::ptrdiff_t>(file.entry) : entries.end();
  if (entry == entries.end() || !isIt(*entry)) entry = std::find_if(entries.begin(), entries.end(), isIt);
  if (entry == entries.end()) return "its archive does not have it any more";
  if (entry->size > kLargestSource) return "it is larger than 256 MB";
  unpacked_.clear();
  archive_->read(*entry, [this](std::string_view piece) { unpacked_ += piece; });
  bytes_ = unpacked_;
  return {};
}

}  // namespace korvane
