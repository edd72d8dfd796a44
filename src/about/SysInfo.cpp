// SPDX-License-Identifier: GPL-3.0-or-later
#include "about/SysInfo.h"

#include "files/NativePath.h"
#include "platform/Programs.h"

namespace korvane {

namespace {

const QString kProgramKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools\\MSINFO");
const QString kProgramValue = QStringLiteral("PATH");
const QString kFolderKey = QStringLiteral("SOFTWARE\\Microsoft\\Shared Tools Location");
const QString kFolderValue = QStringLiteral("MSINFO");
const QString kProgramInFolder = QStringLiteral("\\MSINFO32.EXE");

struct DesktopProgram {
  const char* name;
  const char* argument;
};

constexpr DesktopProgram kDesktopPrograms[] = {
    {"kinfocenter", nullptr},
    {"gnome-control-center", "info-overview"},
    {"hardinfo", nullptr},
};

// The program that the registry names; an empty text when it names none that exists.
QString RegisteredProgram(const Registry& registry) {
  QString value;
  const auto root = Registry::Root::localMachine;
  if (GetKeyValue(registry, root, kProgramKey, kProgramValue, value)) return value;
  if (!GetKeyValue(registry, root, kFolderKey, kFolderValue, value)) return {};
  const QString program = value + kProgramInFolder;
  return FileExists(ProgramPath(program.toStdString())) ? program : QString();
}

}  // namespace

bool GetKeyValue(const Registry& registry, Registry::Root KeyRoot, const QString& KeyName,
                 const QString& SubKeyRef, QString& KeyVal) {
  KeyVal.clear();
  const std::optional<RegistryValue> value = registry.read(KeyRoot, KeyName, SubKeyRef);
  if (!value) return false;
  if (const auto* number = std::get_if<quint32>(&*value)) {
    KeyVal = QString::number(*number);
    return true;
  }
  KeyVal = std::get<QString>(*value);
  if (KeyVal.endsWith(QChar::Null)) KeyVal.chop(1);
  return true;
}

bool StartSystemInformation(const Registry& registry, Programs& programs) {
  const QString registered = RegisteredProgram(registry);
  if (!registered.isEmpty()) return programs.start(registered, {});
  for (const DesktopProgram& candidate : kDesktopPrograms) {
    if (!programs.installed(candidate.name)) continue;
    const QStringList arguments = candidate.argument ? QStringList(candidate.argument) : QStringList();
    return programs.start(candidate.name, arguments);
  }
  return false;
}

}  // namespace korvane
