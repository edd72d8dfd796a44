// SPDX-License-Identifier: GPL-3.0-or-later
#include "edit/FieldEdits.h"

#include <algorithm>
#include <optional>

#include "edit/LineWords.h"
#include "edit/NewLines.h"
#include "ini/BlockParts.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

// A line of the block as the edits have left it.
struct PlannedLine {
  int number = 0;               // before the edits; 0: it is new
  int size = 0;                 // before the edits
  std::size_t valueAt = 0;      // of the value that was typed: bytes before it
  std::size_t valueLength = 0;  // 0: there is none
  std::optional<LineEdit> edit{};
};

std::size_t OffsetBehind(std::string_view line, std::string_view bytes) {
  return static_cast<std::size_t>(line.data() - bytes.data()) + line.size();
}

// Why nothing in the block can be edited.
Refusal WholeRefusal(const BlockText& block, const BlockName& name) {
  if (name.name.empty()) return {"its block has no name", 0};
  if (block.lines.empty()) return {"the file has no block of the name " + name.name, 0};
  const int header = block.lines.front().number;
  if (block.longerName)
    return {"its value is that of a block with a longer name, which stands first", header};
  if (block.loneLf) return {"its block has line ends of another kind", header};
  return {};
}

std::string_view ProblemOf(const FieldEdit& edit) {
  if (std::holds_alternative<ArmourField>(edit.field)) return ProblemOfPercentage(edit.value);
  if (std::holds_alternative<WeaponField>(edit.field) && IsNoWeapon(edit.value))
    return "what is typed is no name of a weapon";
  return ProblemOfValue(edit.value);
}

// Plans the edits one after the other, each in the text as those before have left it.
class Planner {
 public:
  Planner(std::string_view bytes, const BlockName& name) : bytes_(bytes), name_(name) {
    block_ = ReadBlockText(bytes_, name_);
    for (const BlockLine& line : block_.lines)
      lines_.push_back({.number = line.number, .size = static_cast<int>(line.text.size())});
  }

  FieldPlan run(std::span<const FieldEdit> edits) {
    FieldPlan plan;
    for (const FieldEdit& edit : edits) plan.refusals.push_back(take(edit));
    if (!plan.refused()) readAgain(edits, plan.refusals);
    if (!plan.refused()) tell(plan);
    return plan;
  }

 private:
  Refusal take(const FieldEdit& edit);
  Refusal insert(const FieldEdit& edit);
  void change(std::size_t offset, std::size_t length, std::string_view text);
  void readAgain(std::span<const FieldEdit> edits, std::vector<Refusal>& refusals) const;
  void tell(FieldPlan& plan) const;
  ValuePlace placeIn(std::size_t line) const;

  std::string bytes_;
  const BlockName& name_;
  BlockText block_;
  std::vector<PlannedLine> lines_;  // as many as the block has
};

Refusal Planner::take(const FieldEdit& edit) {
  if (Refusal whole = WholeRefusal(block_, name_)) return whole;
  if (const std::string_view problem = ProblemOf(edit); !problem.empty()) return {std::string(problem), 0};
  const FieldLine found = FindField(block_, edit.field);
  if (found.refusal) return found.refusal;
  if (found.line == kNowhere) return insert(edit);
  PlannedLine& line = lines_[found.line];
  const std::string_view text = block_.lines[found.line].text;
  if (line.valueLength != 0) return {"another field shows the same line", block_.lines[found.line].number};
  line.valueAt = found.at;
  line.valueLength = edit.value.size();
  if (text.substr(found.at, found.length) == edit.value) return {};
  line.edit =
      LineEdit{line.number, static_cast<int>(found.at) + 1, static_cast<int>(found.length), edit.value};
  change(OffsetBehind(text, bytes_) - text.size() + found.at, found.length, edit.value);
  return {};
}

Refusal Planner::insert(const FieldEdit& edit) {
  NewLine line = MakeNewLine(block_, edit.field, edit.value);
  if (line.refusal) return std::move(line.refusal);
  const BlockLine& before = block_.lines[line.behind];
  const std::string text = std::string(before.end.empty() ? kLineEnd : before.end).append(line.text);
  lines_.insert(lines_.begin() + static_cast<std::ptrdiff_t>(line.behind) + 1,
                {.valueAt = line.text.size() - edit.value.size(),
                 .valueLength = edit.value.size(),
                 .edit = LineEdit{.text = text}});
  change(OffsetBehind(before.text, bytes_), 0, text);
  return {};
}

void Planner::change(std::size_t offset, std::size_t length, std::string_view text) {
  bytes_.replace(offset, length, text);
  block_ = ReadBlockText(bytes_, name_);
}

void Planner::readAgain(std::span<const FieldEdit> edits, std::vector<Refusal>& refusals) const {
  const std::string text = TextOf(block_);
  for (std::size_t i = 0; i < edits.size(); ++i) {
    if (block_.lines.size() != lines_.size() || ShownValue(text, edits[i].field) != edits[i].value)
      refusals[i] = {"the field would show something else than what is typed", 0};
  }
}

// Says the changes as edits of the text that was there before. New lines come behind the last one before them
// that was there.
void Planner::tell(FieldPlan& plan) const {
  const PlannedLine* before = nullptr;
  for (std::size_t i = 0; i < lines_.size(); ++i) {
    const PlannedLine& line = lines_[i];
    if (line.valueLength != 0 && plan.place.line == 0) plan.place = placeIn(i);
    const bool joinsNewLine = line.number == 0 && i > 0 && lines_[i - 1].number == 0;
    if (line.number != 0) before = &line;
    if (!line.edit) continue;
    if (joinsNewLine) {
      plan.edits.back().text += line.edit->text;
      continue;
    }
    plan.edits.push_back(*line.edit);
    if (line.number == 0 && before != nullptr) {
      plan.edits.back().line = before->number;
      plan.edits.back().column = before->size + 1;
    }
  }
}

ValuePlace Planner::placeIn(std::size_t i) const {
  return {block_.lines[i].number, static_cast<int>(lines_[i].valueAt) + 1,
          static_cast<int>(lines_[i].valueLength), block_.lines.front().number};
}

}  // namespace

bool FieldPlan::refused() const {
  return std::ranges::any_of(refusals, [](const Refusal& refusal) { return static_cast<bool>(refusal); });
}

FieldPlan PlanFieldEdits(std::string_view bytes, const BlockName& block, std::span<const FieldEdit> edits) {
  return Planner(bytes, block).run(edits);
}

ValuePlace FindValue(std::string_view bytes, const BlockName& block, const Field* field) {
  const BlockText text = ReadBlockText(bytes, block);
  if (text.lines.empty()) return {};
  const int header = text.lines.front().number;
  const FieldLine found = field == nullptr ? FieldLine() : FindField(text, *field);
  if (found.line != kNowhere)
    return {text.lines[found.line].number, static_cast<int>(found.at) + 1, static_cast<int>(found.length),
            header};
  if (found.refusal.line != 0) return {found.refusal.line, 1, 0, header};
  const BlockLine& first = text.lines.front();
  const std::size_t name = std::min(block.kind.size() + 1, first.text.size());
  return {header, static_cast<int>(name) + 1, static_cast<int>(block.name.size()), header};
}

std::string ReadValue(std::string_view bytes, const BlockName& block, const Field& field) {
  return ShownValue(TextOf(ReadBlockText(bytes, block)), field);
}

}  // namespace korvane
