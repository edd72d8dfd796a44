// SPDX-License-Identifier: GPL-3.0-or-later
// Does one thing to the disk as the windows do it. Ends with 0 when it is done, else with 1 and the reason.
//   replace FILE SIZE         a text of SIZE new bytes
//   create FILE SIZE
//   save FILE SIZE            the same as the manual editor saves it, with versions kept in FILE.versions
//   unsaved FILE SIZE         keeps a text of SIZE bytes that was not saved
//   start FILE -              keeps what the program's end left in FILE.versions
//   setting FOLDER VALUE      the entry "InfoTab" of the settings in the folder
#include <QString>

#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <string>

#include "faults/Texts.h"
#include "platform/FileSaving.h"
#include "platform/FileWriter.h"
#include "platform/KeptVersions.h"
#include "settings/SettingsStore.h"

namespace {

using namespace korvane;

QString VersionsOf(const QString& file) {
  return file + ".versions";
}

// A save that could not keep the former version says so, but is done.
QString Save(const QString& file, const std::string& text) {
  const FileWriter writer;
  const KeptVersions versions(writer, VersionsOf(file));
  const std::string bytes = FileOfUtf8(text).bytes;
  const FileSaved saved = SaveFile({.path = file, .bytes = bytes, .utf8 = text}, writer, versions);
  if (saved.stop == FileSaved::Stop::formerUnreadable) return "the former version cannot be read";
  return saved.reason + saved.notKept;
}

QString KeepUnsaved(const QString& file, const std::string& text) {
  const FileWriter writer;
  return KeptVersions(writer, VersionsOf(file)).keepUnsaved({file, false, text});
}

QString Start(const QString& file) {
  const FileWriter writer;
  const KeptVersions versions(writer, VersionsOf(file));
  return versions.recovered().empty() ? "nothing was kept" : "";
}

using Step = std::function<QString(const QString& path, const char* argument)>;

const std::map<std::string, Step> kSteps = {
    {"replace",
     [](const QString& path, const char* size) { return FileWriter().replace(path, NewText(size)); }},
    {"create",
     [](const QString& path, const char* size) { return FileWriter().create(path, NewText(size)); }},
    {"save", [](const QString& path, const char* size) { return Save(path, NewText(size)); }},
    {"unsaved", [](const QString& path, const char* size) { return KeepUnsaved(path, NewText(size)); }},
    {"start", [](const QString& path, const char*) { return Start(path); }},
    {"setting",
     [](const QString& folder, const char* value) {
       SettingsStore store(folder);
       store.SaveSet("InfoTab", value);
       return store.trouble();
     }},
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 4 || !kSteps.contains(argv[1])) return 2;
  const QString reason = kSteps.at(argv[1])(argv[2], argv[3]);
  std::cout << reason.toStdString() << '\n';
  return reason.isEmpty() ? 0 : 1;
}
