// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as an INI file, held against a second version of the grammar. The input is a kind word, a name, a
// parameter key (each ended by a line feed) and the file.
#include <cstdint>

#include "FuzzFolder.h"
#include "SlowIni.h"
#include "ini/SParse.h"

namespace {

using namespace korvane;

std::string TakeLine(std::string& input) {
  const std::string line = input.substr(0, input.find('\n'));
  input.erase(0, line.size() + 1);
  return line;
}

// Every text that does not come from a file may be a file's bytes or a block.
void CompareTexts(SParse& parser, const std::string& text, const std::string& key) {
  Require(SParse::GetParameterValueNoINI("Object", key, text) == slow::ParameterValue(text, key));
  Require(parser.GetWeaponValue(key, text) == slow::SingleValue(text, key + " "));
  Require(SParse::GetCommandSetValue(1, text) == slow::SingleValue(text, "1"));
  Require(SParse::RemVBCrLf(text) == slow::WithoutBlankLines(text));
  parser.ExtractWeapons(text);
  Require(parser.WeaponSetTexts() == slow::WeaponSets(text));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const FuzzFolder folder;
  std::string file(reinterpret_cast<const char*>(data), size);
  const std::string kind = TakeLine(file);
  const std::string name = TakeLine(file);
  const std::string key = TakeLine(file);
  folder.write("Data/INI/Weapon.ini", file);

  SParse parser([] { return folder.path(); }, [] {});
  parser.ObjectName = name;
  const std::string block = slow::ObjectText(file, kind, name);
  Require(parser.GetObjectText(kind, "Weapon.ini") == block);
  Require(parser.GetParameterValue(kind, key, "Weapon.ini") == slow::ParameterValue(block, key));
  CompareTexts(parser, block, key);
  CompareTexts(parser, file, key);
  return 0;
}
