// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <filesystem>
#include <string_view>

namespace korvane {

// A path of this machine as a QString. A name may hold any bytes: those that are not UTF-8
// are shown as replacement characters, and such a file is not found by its text.
QString TextOfNative(const std::filesystem::path& native);

// The same of the path that the program's path text (see NativePath.h) leads to.
QString NativeText(std::string_view programPath);

}  // namespace korvane
