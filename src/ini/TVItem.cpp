// SPDX-License-Identifier: GPL-3.0-or-later
#include "ini/TVItem.h"

#include <algorithm>
#include <exception>

#include "ini/DataFiles.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

constexpr std::string_view kDefaultFile = "Object\\FactionUnit.ini";

std::optional<int> FileIndex(std::string_view name) {
  const auto* found = std::find(kObjectFiles.begin(), kObjectFiles.end(), name);
  if (found == kObjectFiles.end()) return std::nullopt;
  return static_cast<int>(found - kObjectFiles.begin()) + 1;
}

}  // namespace

void TVItem::OpenFile(std::string_view strFileName) {
  readLines(ProgramPath(strFileName));
}

void TVItem::GetFUnitData(std::optional<std::string_view> IniName) {
  const ProgramPath path = IniPath(GamePath, IniName.value_or(kDefaultFile));
  Ready = false;
  if (ProcStart) ProcStart();
  yield();
  readLines(path);
  Ready = true;
  if (ProcDone) ProcDone();
}

void TVItem::GetLocomotorData() {
  GetFUnitData(kLocomotorFile);
}

void TVItem::AddTVItem(std::string_view Key) {
  Ready = false;
  yield();
  FileKey = Key;
  if (LoadingItem) LoadingItem(FileKey, FileIndex(FileKey));
  readLines(ObjectFilePath(GamePath, Key));
  Ready = true;
}

bool TVItem::FindText(std::string_view StrString, std::string_view StringToFind) {
  return ToLowerAscii(StrString).find(ToLowerAscii(StringToFind)) != std::string::npos;
}

void TVItem::readLines(const ProgramPath& path) {
  if (!file_.open(path)) return;
  const auto take = [this](std::string_view line) { deliver(line); };
  std::string_view rest = file_.next(0);  // what is not handed out yet
  while (!file_.atEnd()) {
    rest.remove_prefix(rest.size() - ForEachWholeLine(rest, take));
    yield();
    rest = file_.next(rest.size());
  }
  file_.close();
  ForEachLine(rest, take);
}

void TVItem::deliver(std::string_view line) {
  if (YieldsPerLine) yield();
  try {
    if (NewLine) NewLine(line);
  } catch (const std::exception&) {
    // Its own line is lost, the rest of the file is not.
  }
}

void TVItem::yield() const {
  if (yield_) yield_();
}

}  // namespace korvane
