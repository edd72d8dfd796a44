// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstdlib>
#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>

#include "Progress.h"
#include "Terminal.h"
#include "catalogue/Catalogue.h"
#include "catalogue/LineTexts.h"
#include "catalogue/SourceFiles.h"
#include "check/Arguments.h"
#include "check/Baseline.h"
#include "check/Checker.h"
#include "check/ExitCodes.h"
#include "files/FileBytes.h"
#include "files/NativePath.h"
#include "files/WholeFile.h"
#include "ini/IniText.h"

namespace {

using namespace korvane;
namespace fs = std::filesystem;

// A path as the user wrote it, as the program's.
std::string PathOf(const std::string& written) {
  return ProgramText(PathFromUtf8(written));
}

bool IsArchive(const std::string& path) {
  return ToLowerAscii(path).ends_with(".big") && FileExists(ProgramPath(path));
}

// A source that has nothing to read, rather than something that cannot be read, was named by mistake.
void RequireData(const std::string& written) {
  const std::string path = PathOf(written);
  if (!IsArchive(path) && !FolderExists(ProgramPath(path)))
    throw std::runtime_error(written + ": is no folder and no archive");
  const auto list = ListSourceFiles({path}, {});
  if (list && list->files.empty() && list->skipped.empty())
    throw std::runtime_error(written + ": has no INI files below Data/INI that can be read");
}

CatalogueSources SourcesOf(const Arguments& arguments) {
  CatalogueSources sources{.gameFolder = PathOf(arguments.game)};
  const bool hasData =
      IsArchive(sources.gameFolder) || FolderExists(ProgramPath(sources.gameFolder + "\\Data\\INI"));
  if (!hasData)
    throw std::runtime_error(arguments.game + ": has no Data/INI that can be read, and is no archive");
  for (const std::string& also : arguments.also) {
    RequireData(also);
    sources.also.push_back(PathOf(also));
  }
  return sources;
}

std::string ReadBaseline(const std::string& written) {
  FileBytes file;
  if (!file.read(ProgramPath(PathOf(written)), {})) throw std::runtime_error(written + ": cannot be read");
  return std::string(file.bytes());
}

void WriteBaseline(const Arguments& arguments, const Findings& findings) {
  WholeFile file(PathFromUtf8(arguments.baseline));
  file.write(BaselineText(findings));
  if (const std::string reason = file.replace(); !reason.empty())
    throw std::runtime_error(arguments.baseline + ": " + reason);
  std::cout << findings.size() << (findings.size() == 1 ? " finding" : " findings") << " written to "
            << arguments.baseline << '\n';
}

// What stands before a file's path where paths are read from the folder that we are in.
std::string PrefixOf(const std::string& game) {
  const fs::path path = PathFromUtf8(game).lexically_normal();
  if (path.is_absolute() || path.has_root_name() || path == "." || *path.begin() == "..") return "";
  const std::u8string text = path.generic_u8string();
  const std::string prefix(text.begin(), text.end());
  return prefix.ends_with('/') ? prefix : prefix + "/";
}

bool SaySkipped(const Catalogue& catalogue) {
  for (const SkippedFile& skipped : catalogue.skipped())
    std::cerr << "korvane-check: " << Utf8FromPath(NativePath(ProgramPath(skipped.path)))
              << ": not read, for " << skipped.reason << '\n';
  return !catalogue.skipped().empty();
}

Findings FindingsOf(const Checker& checker, const Arguments& arguments) {
  Progress progress("Checking", static_cast<std::int64_t>(checker.files().size()));
  Findings findings =
      checker
          .check({.jobs = arguments.jobs, .progress = [&](std::size_t, std::size_t) { progress.stepDone(); }})
          .value_or(Findings());
  std::erase_if(findings, [&](const Finding& finding) { return finding.level < arguments.level; });
  return findings;
}

void Show(const Findings& findings, const Checker& checker, const Arguments& arguments) {
  const char* noColour = std::getenv("NO_COLOR");
  const bool terminal = OutputGoesToTerminal();
  LineTexts lines;
  const auto lineOf = [&](const Finding& finding) {
    const CatalogueFile* file = checker.catalogue().file(finding.file);
    return file == nullptr
               ? std::string()
               : std::string(lines.line(file->source(), static_cast<std::uint32_t>(finding.line)));
  };
  arguments.report(std::cout, findings,
                   {.files = checker.files().size(),
                    .prefix = PrefixOf(arguments.game),
                    .terminal = terminal,
                    .colours = (noColour == nullptr || *noColour == '\0') && OutputTakesColours(),
                    .lineOf = lineOf});
}

int Check(const Arguments& arguments) {
  const CataloguePtr catalogue = ReadCatalogue(SourcesOf(arguments));
  const bool incomplete = SaySkipped(*catalogue);
  const Checker checker(catalogue, arguments.rules);
  if (checker.files().empty())
    throw std::runtime_error(arguments.game + ": has no INI file below Data/INI that could be checked");
  Findings findings = FindingsOf(checker, arguments);
  if (arguments.writeBaseline) {
    WriteBaseline(arguments, findings);
    return incomplete ? kCouldNotCheck : kNothingFound;
  }
  if (!arguments.baseline.empty()) Baseline::FromText(ReadBaseline(arguments.baseline)).remove(findings);
  Show(findings, checker, arguments);
  if (!std::cout.flush()) throw std::runtime_error("the findings cannot be written");
  return !findings.empty() ? kFound : incomplete ? kCouldNotCheck : kNothingFound;
}

}  // namespace

int main(int argc, char** argv) {
  const Utf8Session session(argc, argv);
  try {
    const ReadArguments read = ReadCommandLine(argc, argv);
    return read.done ? read.exitCode : Check(read.arguments);
  } catch (const std::exception& error) {
    std::cerr << "korvane-check: " << error.what() << '\n';
    return kCouldNotCheck;
  }
}
