// SPDX-License-Identifier: GPL-3.0-or-later
#include "files/NativePath.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <exception>

#ifdef _WIN32
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#endif

namespace korvane {

namespace fs = std::filesystem;

#ifndef _WIN32

namespace {

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

}  // namespace

#endif

fs::path PathFromUtf8(std::string_view text) {
  return {std::u8string(text.begin(), text.end())};
}

#ifdef _WIN32

std::string Utf8FromPath(const fs::path& path) {
  const std::wstring& wide = path.native();
  const int size = static_cast<int>(wide.size());
  const auto convert = [&](char* text, int capacity) {
    return ::WideCharToMultiByte(CP_UTF8, 0, wide.data(), size, text, capacity, nullptr, nullptr);
  };
  std::string text(static_cast<std::size_t>(convert(nullptr, 0)), '\0');
  convert(text.data(), static_cast<int>(text.size()));
  return text;
}

// "\\?\C:\x" means "C:\x", and "\\?\UNC\server\share" means "\\server\share".
fs::path NativePath(const ProgramPath& path) {
  constexpr std::string_view kLong = R"(\\?\)";
  constexpr std::string_view kLongShare = R"(\\?\UNC\)";
  const std::string_view text = path.text();
  if (text.starts_with(kLongShare))
    return PathFromUtf8(R"(\\)" + std::string(text.substr(kLongShare.size())));
  return PathFromUtf8(text.starts_with(kLong) ? text.substr(kLong.size()) : text);
}

#else

std::string Utf8FromPath(const fs::path& path) {
  return path.string();
}

fs::path NativePath(const ProgramPath& path) {
  std::string text = path.text();
  std::replace(text.begin(), text.end(), '\\', '/');
  if (HasDrive(text)) return MatchEachComponent(WineDrive(text[0]), PathFromUtf8(text.substr(2)));
  fs::path exact = PathFromUtf8(text);
  std::error_code error;
  if (fs::exists(exact, error)) return exact;
  return MatchEachComponent(exact.is_absolute() ? fs::path("/") : fs::path("."), exact);
}

#endif

std::string ProgramText(const fs::path& native) {
  std::string path = Utf8FromPath(native);
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
