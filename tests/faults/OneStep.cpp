// SPDX-License-Identifier: GPL-3.0-or-later
// Does one thing to the disk as the windows do it. Ends with 0 when it is done, else with 1 and the reason.
// Without arguments it does what it is told on its input, see Serve.
//   replace FILE SIZE         a text of SIZE new bytes
//   create FILE SIZE
//   save FILE SIZE            the same as the manual editor saves it, with versions kept in FILE.versions
//   unsaved FILE SIZE         keeps a text of SIZE bytes that was not saved
//   start FILE -              keeps what the program's end left in FILE.versions
//   setting FOLDER VALUE      the entry "InfoTab" of the settings in the folder
//   copy FILE -               what it reads of the file as FILE.copy
//   draft FILE SIZE           notes three texts, each instead of the one before, and says which it has noted
//   wizard GAME FOLDER        with the stock database and the settings in FOLDER
#include <QApplication>
#include <QFontInfo>
#include <QString>

#include <cstdlib>
#include <dlfcn.h>
#include <functional>
#include <iostream>
#include <map>
#include <string>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

#include "faults/Texts.h"
#include "faults/WizardRun.h"
#include "files/FileBytes.h"
#include "platform/FileSaving.h"
#include "platform/FileWriter.h"
#include "platform/KeptVersions.h"
#include "platform/UnsavedJournal.h"
#include "settings/SettingsStore.h"

namespace {

using namespace korvane;

using Step = std::function<QString(const QString& path, const std::string& argument)>;

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

QString Copy(const QString& file) {
  FileBytes bytes;
  if (!bytes.read(ProgramPath(file.toStdString()), {})) return "it cannot be read";
  return FileWriter().create(file + ".copy", bytes.bytes());
}

// From the event loop, as while somebody types.
QString NoteSoon(UnsavedJournal& journal, const UnsavedText& text) {
  QString failure;
  const auto told = QObject::connect(&journal, &UnsavedJournal::noted,
                                     [&failure](const QString& reason) { failure = reason; });
  journal.noteSoon(text);
  while (journal.isNoting()) QCoreApplication::processEvents();
  QObject::disconnect(told);
  return failure;
}

QString Draft(const QString& file, const std::string& size) {
  const FileWriter writer;
  const KeptVersions versions(writer, VersionsOf(file));
  UnsavedJournal journal(versions);
  for (const int number : {1, 2, 3}) {
    const UnsavedText text{file, false, DraftText(number, size)};
    const QString reason = number < 3 ? NoteSoon(journal, text) : journal.note(text);
    if (!reason.isEmpty()) return reason;
    std::cout << "noted " << number << std::endl;
  }
  return {};
}

const std::map<std::string, Step> kSteps = {
    {"replace",
     [](const QString& path, const std::string& size) { return FileWriter().replace(path, NewText(size)); }},
    {"create",
     [](const QString& path, const std::string& size) { return FileWriter().create(path, NewText(size)); }},
    {"save", [](const QString& path, const std::string& size) { return Save(path, NewText(size)); }},
    {"unsaved",
     [](const QString& path, const std::string& size) { return KeepUnsaved(path, NewText(size)); }},
    {"start", [](const QString& path, const std::string&) { return Start(path); }},
    {"setting",
     [](const QString& folder, const std::string& value) {
       SettingsStore store(folder);
       store.SaveSet("InfoTab", QString::fromStdString(value));
       return store.trouble();
     }},
    {"copy", [](const QString& path, const std::string&) { return Copy(path); }},
    {"draft", Draft},
    {"wizard", [](const QString& game,
                  const std::string& folder) { return RunWizard(game, QString::fromStdString(folder)); }},
};

int Do(const std::vector<std::string>& words) {
  if (words.size() != 3 || !kSteps.contains(words[0])) return 2;
  const QString reason = kSteps.at(words[0])(QString::fromStdString(words[1]), words[2]);
  std::cout << reason.toStdString() << std::endl;
  return reason.isEmpty() ? 0 : 1;
}

// One order: variables "NAME=value" and the words of a step, a line each, up to an empty line.
std::vector<std::string> ReadOrder() {
  std::vector<std::string> words;
  for (std::string line; std::getline(std::cin, line) && !line.empty();) words.push_back(line);
  return words;
}

[[noreturn]] void Obey(std::vector<std::string> words) {
  while (!words.empty() && words[0].find('=') != std::string::npos) {
    const std::size_t equals = words[0].find('=');
    setenv(words[0].substr(0, equals).c_str(), words[0].substr(equals + 1).c_str(), 1);
    words.erase(words.begin());
  }
  const auto begin = reinterpret_cast<void (*)()>(dlsym(RTLD_DEFAULT, "FaultsBegin"));
  if (begin != nullptr) begin();
  _exit(Do(words));
}

// Each order is a process of its own, which need not start the program anew. What it writes ends with a zero
// byte and its status.
int Serve() {
  for (std::vector<std::string> order; !(order = ReadOrder()).empty();) {
    const pid_t child = fork();
    if (child == 0) Obey(std::move(order));
    int status = 0;
    waitpid(child, &status, 0);
    std::cout << '\0' << status << std::endl;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication app(argc, argv);
  QFontInfo(QApplication::font()).family();  // fonts are found once for all orders
  return argc == 1 ? Serve() : Do({argv + 1, argv + argc});
}
