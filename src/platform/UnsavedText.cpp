// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/UnsavedText.h"

#include <array>

namespace korvane {

namespace {

constexpr std::string_view kPart = "part";

QString Text(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

// Takes the bytes up to an end mark, and the mark, from the front.
std::optional<std::string_view> TakeField(std::string_view& journal, char end) {
  const std::size_t size = journal.find(end);
  if (size == std::string_view::npos) return std::nullopt;
  const std::string_view field = journal.substr(0, size);
  journal.remove_prefix(size + 1);
  return field;
}

// The path, a line end, "part" or nothing, a line end, and the file's bytes.
std::optional<ReadJournal> TextOfFormerJournal(std::string_view journal) {
  const auto path = TakeField(journal, '\n');
  const auto part = TakeField(journal, '\n');
  if (!path || !part) return std::nullopt;
  return ReadJournal{Text(*path), *part == kPart, {}, {std::string(journal), false}};
}

}  // namespace

// A path can hold any character but NUL. The first NUL tells it from a journal of an earlier release.
std::string HeadOfJournal(const UnsavedText& text) {
  std::string head(1, '\0');
  head.append(text.path.toStdString()).append(1, '\0');
  head.append(text.part ? kPart : "").append(1, '\0');
  return head.append(text.former.toStdString()).append(1, '\0');
}

std::optional<ReadJournal> TextOfJournal(std::string_view journal) {
  if (journal.empty() || journal.front() != '\0') return TextOfFormerJournal(journal);
  journal.remove_prefix(1);
  std::array<std::string_view, 3> fields;
  for (std::string_view& field : fields) {
    const auto taken = TakeField(journal, '\0');
    if (!taken) return std::nullopt;
    field = *taken;
  }
  return ReadJournal{Text(fields[0]), fields[1] == kPart, Text(fields[2]), KeepableOfUtf8(journal)};
}

}  // namespace korvane
