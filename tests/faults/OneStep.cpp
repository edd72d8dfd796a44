// SPDX-License-Identifier: GPL-3.0-or-later
// Does one thing to the disk as the windows do it. Ends with 0 when it is done, else with 1 and the reason.
//   replace FILE SIZE         a text of SIZE new bytes
//   create FILE SIZE
//   setting FOLDER VALUE      the entry "InfoTab" of the settings in the folder
#include <QString>

#include <cstdlib>
#include <functional>
#include <iostream>
#include <map>
#include <string>

#include "faults/Texts.h"
#include "platform/FileWriter.h"
#include "settings/SettingsStore.h"

namespace {

using namespace korvane;

using Step = std::function<QString(const QString& path, const char* argument)>;

const std::map<std::string, Step> kSteps = {
    {"replace",
     [](const QString& path, const char* size) { return FileWriter().replace(path, NewText(size)); }},
    {"create",
     [](const QString& path, const char* size) { return FileWriter().create(path, NewText(size)); }},
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
