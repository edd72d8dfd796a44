// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace korvane {

// How a file gets its new bytes: another file takes its place, which leaves the old bytes to any other name
// of the old one, or the old file itself is written over.
enum class ReplaceWay { renamed, inPlace };

// Keeps the former version, right before it goes. A reason stops the replacing. Called a second time, with
// inPlace, when the file turns out to be one whose place cannot be taken.
using KeepFormer = std::function<std::string(ReplaceWay)>;

// Replaces an ordinary file whole, or creates it; the new bytes are on the disk before the old file goes. Its
// owner, group, rights, access list and extended attributes stay; a symbolic link stays a link to the file;
// another hard link keeps the old file. Where its place cannot be taken (a folder whose entries are not to be
// changed; an owner that this user cannot give), the file is written in place, for which `keep` must keep the
// former version as a file of its own: without `keep` such a file is refused. Native path. Gives an empty
// text when it is done, else the system's reason; what was there before is then there again.
[[nodiscard]] std::string SafeReplace(const std::filesystem::path& path, std::string_view bytes,
                                      const KeepFormer& keep = {});

}  // namespace korvane
