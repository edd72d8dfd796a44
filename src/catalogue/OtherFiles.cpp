// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/OtherFiles.h"

#include <algorithm>
#include <filesystem>
#include <tuple>
#include <utility>

#include "files/FilePieces.h"
#include "files/NativePath.h"
#include "ini/DataFiles.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

namespace fs = std::filesystem;

constexpr std::string_view kLowerObjects = "object\\";
constexpr std::string_view kOutside = "INI\\";
constexpr std::string_view kLowerExtension = ".ini";
constexpr std::string_view kObject = "Object";
constexpr std::string_view kBlanks = " \t";
constexpr std::string_view kWordEnds = " \t;\r\n";
constexpr std::size_t kLongestLine = 1 << 20;  // bytes that are kept until the line's end comes

std::string_view WordAt(std::string_view line, std::size_t at) {
  return line.substr(at, line.find_first_of(kWordEnds, at) - at);
}

bool MayHaveHeader(std::string_view lines) {
  return lines.starts_with(kObject) || lines.find("\nObject") != lines.npos ||
         lines.find("\rObject") != lines.npos;
}

// The name in an object header; empty for any other line.
std::string_view ObjectName(std::string_view line) {
  if (!line.starts_with(kObject)) return {};
  const std::string_view kind = WordAt(line, 0);
  if (kind != kObject && kind != "ObjectReskin") return {};
  const std::size_t name = line.find_first_not_of(kBlanks, kind.size());
  return name == std::string_view::npos ? std::string_view() : WordAt(line, name);
}

// Goes through a file once: its object headers and its line ends.
class HeaderScan {
 public:
  // False when the file holds no header at all.
  bool read(const ProgramPath& path, OtherFile& file);

 private:
  std::string_view takeLines(std::string_view bytes);
  void countLines(std::string_view bytes);
  void takeLfLine(std::string_view line);
  void takeLine(std::string_view line, bool behindLf);

  FilePieces pieces_;
  OtherFile* file_ = nullptr;
  bool behindLf_ = false;   // the next line begins behind a lone LF
  bool continues_ = false;  // the next bytes go on with a line whose beginning is gone
  bool found_ = false;
};

bool HeaderScan::read(const ProgramPath& path, OtherFile& file) {
  if (!pieces_.open(path)) return false;
  file_ = &file;
  behindLf_ = continues_ = found_ = false;
  std::string_view rest = pieces_.next(0);
  while (!pieces_.atEnd()) {
    rest = takeLines(rest);
    if (rest.size() > kLongestLine) {
      takeLine(rest, behindLf_);
      rest.remove_prefix(rest.size() - 1);  // an LF may follow a CR
      continues_ = true;
    }
    rest = pieces_.next(rest.size());
  }
  pieces_.close();
  rest = takeLines(rest);
  takeLfLine(rest);
  return found_;
}

// Takes what ends in an LF and gives what is left.
std::string_view HeaderScan::takeLines(std::string_view bytes) {
  const std::string_view lines = bytes.substr(0, bytes.rfind('\n') + 1);
  if (!continues_ && !lines.empty() && !MayHaveHeader(lines)) {
    countLines(lines);
    bytes.remove_prefix(lines.size());
  }
  for (std::size_t lf = bytes.find('\n'); lf != std::string_view::npos; lf = bytes.find('\n')) {
    const std::string_view line = bytes.substr(0, lf);
    takeLfLine(line);
    behindLf_ = !line.ends_with('\r');
    if (behindLf_) ++file_->lineEnds.lf;
    bytes.remove_prefix(lf + 1);
  }
  return bytes;
}

// Of lines without any header.
void HeaderScan::countLines(std::string_view bytes) {
  const auto first = static_cast<std::size_t>(bytes.front() == '\n');
  file_->lineEnds.lf += first + CountBehindFirst(bytes, kIsLoneLf);
  file_->lineEnds.hasOther |= bytes.find('\r') != std::string_view::npos;
  behindLf_ = !bytes.substr(0, bytes.size() - 1).ends_with('\r');
}

// Lone CRs end lines too.
void HeaderScan::takeLfLine(std::string_view line) {
  for (std::size_t cr = line.find('\r'); cr != std::string_view::npos; cr = line.find('\r')) {
    file_->lineEnds.hasOther = true;
    takeLine(line.substr(0, cr), behindLf_);
    behindLf_ = false;
    line.remove_prefix(cr + 1);
  }
  takeLine(line, behindLf_);
}

void HeaderScan::takeLine(std::string_view line, bool behindLf) {
  if (std::exchange(continues_, false)) return;
  const std::string_view name = ObjectName(line);
  if (name.empty()) return;
  found_ = true;
  if (!behindLf) file_->objects.emplace_back(name);
}

bool IsObjectFile(std::string_view lowerPath) {
  return std::ranges::any_of(kObjectFiles, [&](std::string_view file) {
    return lowerPath.substr(kLowerObjects.size()) == ToLowerAscii(file);
  });
}

struct Candidate {
  bool outside;
  std::string lowerPath;
  std::string path;
};

bool ByPath(const Candidate& a, const Candidate& b) {
  return std::tie(a.outside, a.lowerPath, a.path) < std::tie(b.outside, b.lowerPath, b.path);
}

void AddCandidate(const fs::directory_entry& entry, const fs::path& folder,
                  std::vector<Candidate>& candidates) {
  std::error_code error;
  if (!entry.is_regular_file(error) || error) return;
  const std::string path = ProgramText(entry.path().lexically_relative(folder));
  const std::string lower = ToLowerAscii(path);
  if (!lower.ends_with(kLowerExtension)) return;
  const bool inside = lower.starts_with(kLowerObjects);
  if (!inside || !IsObjectFile(lower)) candidates.push_back({!inside, lower, path});
}

std::vector<Candidate> Candidates(std::string_view gameFolder) {
  std::vector<Candidate> candidates;
  try {
    const fs::path folder = NativePath(IniPath(gameFolder, {}));
    std::error_code error;
    fs::recursive_directory_iterator entry(folder, fs::directory_options::skip_permission_denied, error);
    for (; !error && entry != fs::recursive_directory_iterator(); entry.increment(error))
      AddCandidate(*entry, folder, candidates);
  } catch (const std::exception&) {
    // A name that is no text on this system: what was found before it is kept.
  }
  std::ranges::sort(candidates, ByPath);
  return candidates;
}

}  // namespace

std::vector<OtherFile> FindOtherFiles(std::string_view gameFolder, const Yield& yield) {
  std::vector<OtherFile> files;
  HeaderScan scan;
  for (Candidate& candidate : Candidates(gameFolder)) {
    if (yield) yield();
    OtherFile file;
    const bool found = scan.read(IniPath(gameFolder, candidate.path), file);
    file.path = std::move(candidate.path);
    if (found) files.push_back(std::move(file));
  }
  return files;
}

std::string NameOfOtherFile(std::string_view path) {
  if (BeginsWithIgnoringCase(path, kLowerObjects)) return std::string(path.substr(kLowerObjects.size()));
  return std::string(kOutside).append(path);
}

}  // namespace korvane
