// SPDX-License-Identifier: GPL-3.0-or-later
#include "stock/RestorePath.h"

#include <algorithm>
#include <array>
#include <exception>
#include <filesystem>
#include <utility>
#include <vector>

#include "files/DiskFile.h"
#include "files/NativePath.h"
#include "ini/IniText.h"

namespace korvane {

namespace fs = std::filesystem;

namespace {

constexpr std::string_view kForbidden = "<>:\"|?*";
constexpr std::array<std::string_view, 7> kDevices = {"con",    "prn",     "aux",   "nul",
                                                      "conin$", "conout$", "clock$"};
constexpr std::array<std::string_view, 2> kNumberedDevices = {"com", "lpt"};
// The digits one to three count as digits in superscript too, in UTF-8 and in Windows-1252.
constexpr std::array<std::string_view, 6> kSuperscripts = {"\xc2\xb9", "\xc2\xb2", "\xc2\xb3",
                                                           "\xb9",     "\xb2",     "\xb3"};

template <typename List>
bool Contains(const List& list, std::string_view text) {
  return std::find(list.begin(), list.end(), text) != list.end();
}

bool IsDeviceNumber(std::string_view text) {
  return (text.size() == 1 && text[0] >= '0' && text[0] <= '9') || Contains(kSuperscripts, text);
}

// The system looks for devices before the first point, and does not see blanks there.
bool IsDevice(std::string_view piece) {
  const std::string name = ToLowerAscii(TrimSpaces(piece.substr(0, piece.find('.'))));
  if (Contains(kDevices, name)) return true;
  return name.size() > 3 && Contains(kNumberedDevices, name.substr(0, 3)) && IsDeviceNumber(name.substr(3));
}

bool IsFileNameByte(char c) {
  return static_cast<unsigned char>(c) >= 0x20 && kForbidden.find(c) == std::string_view::npos;
}

// A point or blank at the end is cut off by Windows, which would make "..." or "CON " something else.
bool IsPlainName(std::string_view piece) {
  return !piece.empty() && piece.back() != '.' && piece.back() != ' ' && !IsDevice(piece) &&
         std::all_of(piece.begin(), piece.end(), IsFileNameByte);
}

bool IsBelow(const fs::path& folder, const fs::path& path) {
  return std::mismatch(folder.begin(), folder.end(), path.begin(), path.end()).first == folder.end();
}

// What is wrong with the way to a path; empty when it stays below the folder. A link that leads nowhere must
// not be followed either: writing through it would make a file there.
std::string Obstacle(const fs::path& folder, std::string_view path) {
  const fs::path native = NativePath(ProgramPath(path));
  std::error_code error;
  if (fs::symlink_status(native, error).type() == fs::file_type::not_found) return {};
  const fs::path real = RealPath(native, error);
  if (error == std::errc::no_such_file_or_directory) return "a link on its way leads nowhere";
  if (error) return error.message();
  return IsBelow(folder, real) ? "" : "a link on its way leads out of the game folder";
}

std::vector<std::string_view> Pieces(std::string& path) {
  std::replace(path.begin(), path.end(), '/', '\\');
  return Split(path, "\\");
}

}  // namespace

bool IsSafeRelativePath(std::string_view relative) {
  std::string path(relative);
  const std::vector<std::string_view> pieces = Pieces(path);
  return std::all_of(pieces.begin(), pieces.end(), IsPlainName);
}

RestoreTarget TargetOf(std::string_view gameFolder, std::string_view relative) {
  if (!IsSafeRelativePath(relative)) return {{}, "its path is none of a file in the game folder"};
  std::string path(relative);
  try {
    std::error_code error;
    const fs::path folder = RealPath(NativePath(ProgramPath(gameFolder)), error);
    if (error) return {{}, error.message()};
    std::string target(gameFolder);
    for (const std::string_view piece : Pieces(path)) {
      target.append("\\").append(piece);
      if (std::string obstacle = Obstacle(folder, target); !obstacle.empty())
        return {{}, std::move(obstacle)};
    }
    return {std::move(target), {}};
  } catch (const fs::filesystem_error& error) {
    return {{}, error.code().message()};
  } catch (const std::exception& error) {  // text that is no path
    return {{}, error.what()};
  }
}

std::optional<std::string> SafeTarget(std::string_view gameFolder, std::string_view relative) {
  RestoreTarget target = TargetOf(gameFolder, relative);
  return target.reason.empty() ? std::optional(std::move(target.path)) : std::nullopt;
}

}  // namespace korvane
