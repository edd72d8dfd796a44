// SPDX-License-Identifier: GPL-3.0-or-later
#include "support/AgainstSlowEdits.h"

#include <algorithm>

#include "support/SlowIni.h"

namespace korvane {

namespace {

// Where the lines begin as an editor counts them.
std::vector<std::size_t> LineStarts(const std::string& bytes) {
  std::vector<std::size_t> starts = {0};
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    const bool crLf = bytes[i] == '\r' && i + 1 < bytes.size() && bytes[i + 1] == '\n';
    if (!crLf && (bytes[i] == '\r' || bytes[i] == '\n')) starts.push_back(i + 1);
  }
  return starts;
}

std::size_t Offset(const std::string& bytes, int line, int column) {
  return LineStarts(bytes).at(static_cast<std::size_t>(line) - 1) + static_cast<std::size_t>(column) - 1;
}

std::string Lower(std::string text) {
  std::ranges::transform(text, text.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? c + 32 : c; });
  return text;
}

bool IsNoName(const std::string& word) {
  const std::string lower = Lower(word);
  return lower == "yes" || lower == "no" || lower == "weaponset";
}

slow::Texts Values(const std::string& text, const std::string& prefix) {
  slow::Texts values;
  std::string all = slow::ParameterValue(text, prefix);
  for (std::size_t end = all.find("\r\n"); end != std::string::npos; end = all.find("\r\n")) {
    values.push_back(all.substr(0, end));
    all.erase(0, end + 2);
  }
  return values;
}

std::string At(const slow::Texts& values, std::size_t number) {
  return number < values.size() ? values[number] : std::string();
}

std::string Shown(const std::string& text, const KeyField& field) {
  const std::string key(field.key);
  if (field.firstOnly) return At(Values(text, key + " "), 0);
  if (field.spaceFollows) return slow::SingleValue(text, key + " ").value_or("");
  std::string together;
  for (const std::string& value : Values(text, key)) together += value;
  return together;
}
std::string Shown(const std::string& text, const LocomotorField& field) {
  return At(Values(text, "Locomotor"), field.number);
}
std::string Shown(const std::string& text, const WeaponField& field) {
  const slow::Texts sets = slow::WeaponSets(text);
  if (field.set + 1 >= sets.size()) return {};
  const std::string weapon = At(Values(sets[field.set], "Weapon"), field.number + 1);
  return IsNoName(weapon) ? "" : weapon;
}
std::string Shown(const std::string& text, const SlotField& field) {
  return At(Values(text, std::to_string(field.slot)), 0);
}
std::string Percentage(const std::string& line) {
  const std::size_t last = line.rfind(';');
  const std::string piece = last == std::string::npos
                                ? line + " "
                                : line.substr(0, last).substr(line.substr(0, last).rfind(';') + 1);
  const std::string cut = piece.substr(0, piece.find('%')) + "%";
  return cut.substr(cut.rfind(' ') + 1);
}
std::string DamageType(const std::string& line) {
  const std::size_t equals = line.find('=');
  if (equals == std::string::npos) return {};
  std::string words = line.substr(equals + 1);
  words = words.substr(0, words.find('='));
  words.erase(0, std::min(words.find_first_not_of(' '), words.size()));
  return words.substr(0, words.find(' '));
}
std::string Shown(const std::string& text, const ArmourField& field) {
  const slow::Texts lines = slow::Lines(slow::WithoutBlankLines(text));
  std::size_t met = 0;
  for (std::size_t i = 1; i + 1 < lines.size(); ++i) {
    if (DamageType(lines[i]) == field.type && met++ == field.number) return Percentage(lines[i]);
  }
  return {};
}

std::string ShownSlowly(const std::string& bytes, const BlockName& block, const Field& field) {
  const std::string text = slow::ObjectText(bytes, std::string(block.kind), block.name);
  return std::visit([&text](const auto& each) { return Shown(text, each); }, field);
}

bool Listed(const std::string& text, const std::vector<FieldEdit>& edits, bool asEnd) {
  return std::ranges::any_of(edits, [&](const FieldEdit& edit) {
    return asEnd ? text.ends_with(' ' + edit.value) : text == edit.value;
  });
}

// Every piece between line ends is a key's line that ends with a value that was typed.
bool HoldsNewLines(const std::string& text, const std::vector<FieldEdit>& edits) {
  const slow::Texts lines = slow::Lines(text);
  return lines.size() > 1 && lines.front().empty() &&
         std::all_of(lines.begin() + 1, lines.end(), [&](const std::string& line) {
           return line.find(" = ") != std::string::npos && Listed(line, edits, true);
         });
}

// The bytes that go are words that some field showed; those that come are what was typed, or new lines at a
// line's end.
std::string FaultOfEdits(const std::string& bytes, const BlockName& block, const FieldPlan& plan,
                         const std::vector<FieldEdit>& edits) {
  std::vector<std::string> shown;
  for (const FieldEdit& edit : edits) shown.push_back(ShownSlowly(bytes, block, edit.field));
  for (const LineEdit& edit : plan.edits) {
    const std::size_t at = Offset(bytes, edit.line, edit.column);
    const auto length = static_cast<std::size_t>(edit.length);
    const bool atLineEnd = at == bytes.size() || bytes[at] == '\r';
    if (length == 0 && (!atLineEnd || !HoldsNewLines(edit.text, edits))) return "a strange line is inserted";
    if (length == 0) continue;
    if (!Listed(edit.text, edits, false)) return "something else than what was typed is written";
    if (std::ranges::find(shown, bytes.substr(at, length)) == shown.end())
      return "something else than a shown word is replaced";
  }
  return {};
}

}  // namespace

std::string WithLineEdits(const std::string& bytes, const std::vector<LineEdit>& edits) {
  std::string changed = bytes;
  for (auto edit = edits.rbegin(); edit != edits.rend(); ++edit)
    changed.replace(Offset(bytes, edit->line, edit->column), static_cast<std::size_t>(edit->length),
                    edit->text);
  return changed;
}

std::string DifferenceFromSlowEdits(const std::string& bytes, const BlockName& block,
                                    const std::vector<FieldEdit>& edits) {
  const FieldPlan plan = PlanFieldEdits(bytes, block, edits);
  if (plan.refusals.size() != edits.size()) return "not every edit is answered";
  if (plan.refused()) return plan.edits.empty() ? "" : "a refused plan has edits";
  std::string fault = FaultOfEdits(bytes, block, plan, edits);
  if (!fault.empty()) return fault;
  const std::string changed = WithLineEdits(bytes, plan.edits);
  for (const FieldEdit& edit : edits) {
    if (ShownSlowly(changed, block, edit.field) != edit.value) return "a field does not show what was typed";
    if (ReadValue(changed, block, edit.field) != edit.value) return "a field is not read as it is shown";
  }
  const std::size_t at = Offset(changed, plan.place.line, plan.place.column);
  if (!Listed(changed.substr(at, static_cast<std::size_t>(plan.place.length)), edits, false))
    return "the place is not that of a value";
  return {};
}

}  // namespace korvane
