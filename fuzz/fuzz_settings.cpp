// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as a settings file; the first line is a text that is stored in it.
#include "FuzzFolder.h"
#include "settings/IniEscapes.h"
#include "settings/SettingsText.h"

namespace {

using namespace korvane;

constexpr const char* kSection = "Settings";
constexpr const char* kKey = "MenuiFont";
constexpr const char* kOtherKeys[] = {"Exit", "InfoTab", "ItemNum"};

// A text comes back as it was, as a key and as a value.
void CheckEscapes(const QString& text) {
  Require(UnescapedIniValue(EscapedIniValue(text)) == text);
  Require(UnescapedIniKey(EscapedIniKey(text)) == text);
}

void CheckStoring(const SettingsText& file, const QString& value) {
  SettingsText changed = file;
  changed.set(kSection, kKey, value);
  const auto read = SettingsText::Read(changed.bytes());
  Require(read.has_value() && read->find(kSection, kKey) == value);
  for (const char* other : kOtherKeys) Require(read->find(kSection, other) == file.find(kSection, other));
}

void CheckForgetting(const SettingsText& file) {
  SettingsText changed = file;
  changed.remove(kSection);
  const auto read = SettingsText::Read(changed.bytes());
  Require(read.has_value());
  for (const char* gone : kOtherKeys) Require(!read->find(kSection, gone));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const QByteArray input(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
  const qsizetype cut = input.indexOf('\n');
  const QByteArray bytes = cut < 0 ? input : input.mid(cut + 1);
  const QString value = QString::fromUtf8(cut < 0 ? QByteArray() : input.left(cut));
  CheckEscapes(value);
  const auto file = SettingsText::Read(bytes);
  if (!file) return 0;
  Require(file->bytes() == bytes);
  CheckStoring(*file, value);
  CheckForgetting(*file);
  return 0;
}
