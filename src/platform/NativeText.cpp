// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/NativeText.h"

#include <QFile>

#include "files/NativePath.h"

namespace korvane {

QString TextOfNative(const std::filesystem::path& native) {
#ifdef _WIN32
  return QString::fromStdU16String(native.u16string());
#else
  return QFile::decodeName(native.c_str());  // unlike u16string(), does not throw
#endif
}

QString NativeText(const ProgramPath& path) {
  return TextOfNative(NativePath(path));
}

}  // namespace korvane
