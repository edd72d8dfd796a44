// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <filesystem>
#include <string_view>

#include "files/NativePath.h"

namespace korvane {

// A path of this machine as a QString. A name may hold any bytes: those that are not UTF-8
// are shown as replacement characters, and such a file is not found by its text.
QString TextOfNative(const std::filesystem::path& native);

// The same of where a path of the program leads to.
QString NativeText(const ProgramPath& path);

}  // namespace korvane
