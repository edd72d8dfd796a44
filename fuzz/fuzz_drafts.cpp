// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as the draft of an unsaved text, as such a text, as a data file that is edited, and as the name
// of a kept version.
#include <algorithm>

#include "FuzzFolder.h"
#include "platform/FileText.h"
#include "platform/UnsavedText.h"
#include "platform/VersionName.h"

namespace {

using namespace korvane;

// What is noted is what is found again.
void CheckNoting(const UnsavedText& text) {
  const auto found = TextOfJournal(HeadOfJournal(text) + text.utf8);
  Require(found && found->path == text.path && found->part == text.part && found->former == text.former);
  const KeepableText keepable = KeepableOfUtf8(text.utf8);
  Require(found->text.bytes == keepable.bytes && found->text.utf8 == keepable.utf8);
}

void CheckDraft(std::string_view bytes) {
  const auto read = TextOfJournal(bytes);
  if (!read || !bytes.starts_with('\0')) return;  // a path of an earlier release can hold anything
  CheckNoting({read->path, read->part, read->text.bytes, read->former});
}

std::string WithoutLineEnds(std::string_view bytes) {
  std::string text(bytes);
  std::erase_if(text, [](char byte) { return byte == '\r' || byte == '\n'; });
  return text;
}

// Every byte of a file can be edited and saved.
void CheckEditing(std::string_view bytes) {
  const QByteArray utf8 = Utf8OfFile(bytes);
  const FileBytesOfText saved = FileOfUtf8({utf8.constData(), static_cast<std::size_t>(utf8.size())});
  Require(!saved.refused && WithoutLineEnds(saved.bytes) == WithoutLineEnds(bytes));
}

void CheckName(const QString& name) {
  const auto version = VersionOfName(name);
  if (!version || !version->time.isValid() || version->number == 0) return;
  const auto again = VersionOfName(NameOfVersion(*version, name));
  Require(again == version);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view bytes(reinterpret_cast<const char*>(data), size);
  CheckDraft(bytes);
  CheckNoting({QStringLiteral("C:\\Games\\Data\\INI\\Weapon.ini"), size % 2 == 0, std::string(bytes)});
  CheckEditing(bytes);
  CheckName(QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size())));
  return 0;
}
