// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/AgainstSlowIni.h"

#include "ini/SParse.h"
#include "support/SlowIni.h"

namespace korvane {

namespace {

// Every text that does not come from a file may be a file's bytes or a block.
std::string DifferenceInText(SParse& parser, const std::string& text, const std::string& key) {
  parser.ExtractWeapons(text);
  if (SParse::GetParameterValueNoINI("Object", key, text) != slow::ParameterValue(text, key))
    return "GetParameterValueNoINI";
  if (parser.GetWeaponValue(key, text) != slow::SingleValue(text, key + " ")) return "GetWeaponValue";
  if (SParse::GetCommandSetValue(1, text) != slow::SingleValue(text, "1")) return "GetCommandSetValue";
  if (SParse::RemVBCrLf(text) != slow::WithoutBlankLines(text)) return "RemVBCrLf";
  if (parser.WeaponSetTexts() != slow::WeaponSets(text)) return "ExtractWeapons";
  return {};
}

}  // namespace

std::string DifferenceFromSlowIni(const std::string& gameFolder, const std::string& file,
                                  const std::string& kind, const std::string& name, const std::string& key) {
  SParse parser([&] { return gameFolder; }, [] {});
  parser.ObjectName = name;
  const std::string block = slow::ObjectText(file, kind, name);
  if (parser.GetObjectText(kind, "Weapon.ini") != block) return "GetObjectText";
  if (parser.GetParameterValue(kind, key, "Weapon.ini") != slow::ParameterValue(block, key))
    return "GetParameterValue";
  const std::string inBlock = DifferenceInText(parser, block, key);
  return inBlock.empty() ? DifferenceInText(parser, file, key) : inBlock;
}

}  // namespace korvane
