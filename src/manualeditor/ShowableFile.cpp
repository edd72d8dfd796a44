// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/ShowableFile.h"

#include <algorithm>
#include <array>
#include <utility>

#include "files/NativePath.h"

namespace korvane {

namespace {

constexpr std::size_t kLargest = std::size_t{200} << 20;  // bytes; the text control needs four times as much
constexpr std::size_t kLongestLine = std::size_t{1} << 16;
constexpr std::size_t kSeenLines = 200;  // on a large screen, where CR and LF each end one
constexpr std::size_t kMostSeen = std::size_t{1} << 19;
constexpr std::size_t kLookedAt = 8;  // bytes behind a byte order mark
const QString kTooLarge = QStringLiteral("The file is too large to be shown: ");
const QString kEndlessLine = QStringLiteral("A line is too long to be shown: ");
const QString kUtf16 = QStringLiteral("The file is stored as UTF-16, which the game cannot read: ");
const QString kUnreadable = QStringLiteral("The file cannot be read: ");
const QString kChanging = QStringLiteral("The file is being changed by another program: ");

// The text control lays out each line that is seen as a whole: a million characters take over a second, and a
// line of a hundred thousand a tenth of one at each key.
bool HasEndlessLine(std::string_view bytes) {
  std::array<std::size_t, kSeenLines> lengths{};
  std::size_t seen = 0;
  std::size_t lf = 0;  // the next one, from where the line begins
  std::size_t begin = 0;
  for (std::size_t line = 0; begin < bytes.size(); ++line) {
    if (lf <= begin) lf = std::min(bytes.find('\n', begin), bytes.size());
    const std::string_view toLf = bytes.substr(begin, lf - begin);
    const std::size_t length = std::min(toLf.find('\r'), toLf.size());
    std::size_t& last = lengths[line % kSeenLines];
    seen += length - std::exchange(last, length);
    if (length > kLongestLine || seen > kMostSeen) return true;
    begin += length + 1;
  }
  return false;
}

// A byte order mark, and then ASCII with a NUL in front of or behind every byte.
bool IsUtf16(std::string_view bytes) {
  const bool little = bytes.starts_with("\xFF\xFE");
  if (!little && !bytes.starts_with("\xFE\xFF")) return false;
  const std::string_view next = bytes.substr(2, kLookedAt);
  for (std::size_t i = little ? 1 : 0; i < next.size(); i += 2) {
    if (next[i] != '\0') return false;
  }
  return next.size() > 1;
}

}  // namespace

QString WhyNotShown(std::string_view bytes) {
  if (bytes.size() > kLargest) return kTooLarge;
  if (IsUtf16(bytes)) return kUtf16;
  return HasEndlessLine(bytes) ? kEndlessLine : QString();
}

QString ReadToShow(const QString& path, FileBytes& file, FileLook& look) {
  switch (ReadStill(NativePath(ProgramPath(path.toStdString())), kLargest, file, look)) {
    case StillRead::done:
      return WhyNotShown(file.bytes());
    case StillRead::tooLarge:
      return kTooLarge;
    case StillRead::changing:
      return kChanging;
    case StillRead::unreadable:
      break;
  }
  return kUnreadable;
}

}  // namespace korvane
