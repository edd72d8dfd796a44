// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/NativePath.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <exception>

namespace korvane {

namespace fs = std::filesystem;

namespace {

fs::path FromUtf8(std::string_view text) {
  return fs::path(std::u8string(text.begin(), text.end()));
}

#ifndef _WIN32

bool EqualIgnoringCase(std::string_view a, std::string_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                    [](unsigned char x, unsigned char y) { return std::tolower(x) == std::tolower(y); });
}

bool HasDrive(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' && std::isalpha(static_cast<unsigned char>(path[0])) != 0;
}

fs::path WineDrive(char letter) {
  const char* prefix = std::getenv("WINEPREFIX");
  const char* home = std::getenv("HOME");
  const fs::path root = prefix != nullptr && *prefix != '\0'
                            ? fs::path(prefix)
                            : fs::path(home != nullptr ? home : "/") / ".wine";
  const char name[] = {static_cast<char>(std::tolower(static_cast<unsigned char>(letter))), ':', '\0'};
  return root / "dosdevices" / name;
}

fs::path MatchComponent(const fs::path& folder, const std::string& name) {
  std::error_code error;
  if (fs::exists(folder / name, error)) return folder / name;
  std::string best;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    const std::string found = entry->path().filename().string();
    if (EqualIgnoringCase(found, name) && (best.empty() || found < best)) best = found;
  }
  return folder / (best.empty() ? name : best);
}

fs::path MatchEachComponent(fs::path folder, const fs::path& rest) {
  for (const fs::path& component : rest) {
    if (!component.empty() && component != "/") folder = MatchComponent(folder, component.string());
  }
  return folder;
}

#endif

}  // namespace

#ifdef _WIN32

fs::path NativePath(const ProgramPath& path) {
  return FromUtf8(path.text());
}

#else

fs::path NativePath(const ProgramPath& path) {
  std::string text = path.text();
  std::replace(text.begin(), text.end(), '\\', '/');
  if (HasDrive(text)) return MatchEachComponent(WineDrive(text[0]), FromUtf8(text.substr(2)));
  fs::path exact = FromUtf8(text);
  std::error_code error;
  if (fs::exists(exact, error)) return exact;
  return MatchEachComponent(exact.is_absolute() ? fs::path("/") : fs::path("."), exact);
}

#endif

std::string ProgramText(const fs::path& native) {
  const std::u8string text = native.u8string();
  std::string path(text.begin(), text.end());
  std::replace(path.begin(), path.end(), '/', '\\');
  return path;
}

bool FileExists(const ProgramPath& path) {
  try {
    std::error_code error;
    const fs::path native = NativePath(path);
    return fs::is_regular_file(native, error) && !error;
  } catch (const std::exception&) {  // text that is no path at all
    return false;
  }
}

bool FolderExists(const ProgramPath& path) {
  try {
    std::error_code error;
    return fs::is_directory(NativePath(path), error) && !error;
  } catch (const std::exception&) {
    return false;
  }
}

}  // namespace korvane
