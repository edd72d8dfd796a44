// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ValueEdits.h"

#include <algorithm>
#include <array>
#include <map>

#include "app/BlockNotices.h"
#include "app/EditorLauncher.h"
#include "app/ManualEditRequest.h"
#include "edit/FieldEdits.h"
#include "files/FileBytes.h"
#include "platform/MessageBoxes.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

// Blocks that objects share, with the words for them.
struct SharedKind {
  std::string_view kind;
  const char* noun;
};
constexpr std::array kSharedKinds = {
    SharedKind{"Locomotor", "locomotor"},
    SharedKind{"Weapon", "weapon"},
    SharedKind{"Armor", "armour"},
};

// The text as the manual editor has it, else as it lies on the disk; nothing when it cannot be read.
std::optional<std::string> TextOfFile(const QString& file, const EditorLauncher& launcher) {
  if (auto text = launcher.textInManualEditor(file)) return text;
  FileBytes bytes;
  if (!bytes.read(ProgramPath(file.toStdString()), {})) return std::nullopt;
  return std::string(bytes.bytes());
}

void GoTo(const QString& file, const ValuePlace& value, EditorLauncher& launcher) {
  const ManualEditPlace place{value.line, value.column, value.length, value.header};
  if (launcher.goToInManualEditor(file, place)) return;
  ManualEditRequest request;
  request.ManualEditFile = file;
  request.place = place;
  launcher.showManualEditor(request);
}

Notice Refused(const QString& caption, const QString& reason) {
  return Notice(caption + " cannot be edited in the file: " + reason);
}

QString FaultOf(const TypedValue& value) {
  if (!value.fault.isEmpty()) return value.fault;
  if (!value.shown.field) return "it is not known which line it shows";
  const bool hasBytes = FromBytes(ToBytes(value.value)) == value.value;
  return hasBytes ? QString() : "the game's files have no byte for a character of it";
}

std::vector<TextEdit> TextEditsOf(const std::vector<LineEdit>& edits) {
  std::vector<TextEdit> made;
  made.reserve(edits.size());
  for (const LineEdit& edit : edits) made.push_back({edit.line, edit.column, edit.length, edit.text});
  return made;
}

bool AgreesForAll(const BlockName& block, EditorLauncher& launcher, MessageBoxes& messages, QWidget& owner) {
  const auto* shared = std::ranges::find(kSharedKinds, block.kind, &SharedKind::kind);
  if (shared == kSharedKinds.end()) return true;
  const auto count = launcher.objectsThatName(block.kind, block.name);
  const QString name = QString(shared->noun) + ' ' + FromBytes(block.name);
  const QString objects =
      count && *count == 1 ? "1 object names" : QString("%1 objects name").arg(count.value_or(0));
  const QString text = count ? objects + " the " + name + ". The change is one for all that use it."
                             : "How many objects name the " + name + " is not known.";
  return messages.ask({.text = text, .answers = {"Edit in file", "Cancel"}}, &owner) == 0;
}

std::vector<Notice> NoticesOfRefusals(std::span<const TypedValue> values, const FieldPlan& plan,
                                      EditorLauncher& launcher) {
  std::vector<Notice> notices;
  for (std::size_t i = 0; i < values.size(); ++i) {
    const Refusal& refusal = plan.refusals[i];
    if (!refusal) continue;
    Notice& notice = notices.emplace_back(Refused(values[i].caption, FromBytes(refusal.reason)));
    if (refusal.line != 0) {
      notice.say(" (");
      AddLine(notice, QString("line %1").arg(refusal.line), values[i].shown.file,
              static_cast<std::size_t>(refusal.line), launcher);
      notice.say(")");
    }
    notice.say(".");
  }
  return notices;
}

}  // namespace

void ShowInFile(const ShownField& shown, EditorLauncher& launcher) {
  const std::optional<std::string> text = TextOfFile(shown.file, launcher);
  const Field* field = shown.field ? &*shown.field : nullptr;
  GoTo(shown.file, text ? FindValue(*text, shown.block, field) : ValuePlace(), launcher);
}

std::vector<bool> ShownByFile(std::span<const TypedValue> values) {
  std::map<QString, FileBytes> files;
  std::vector<bool> shown;
  for (const TypedValue& value : values) {
    const auto [file, isNew] = files.try_emplace(value.shown.file);
    // Of a file that cannot be read there are no bytes, and no block in them.
    if (isNew) file->second.read(ProgramPath(value.shown.file.toStdString()), {});
    const bool sure = FaultOf(value).isEmpty();
    shown.push_back(sure && ReadValue(file->second.bytes(), value.shown.block, *value.shown.field) ==
                                ToBytes(value.value));
  }
  return shown;
}

std::vector<Notice> EditInFile(std::span<const TypedValue> values, EditorLauncher& launcher,
                               MessageBoxes& messages, QWidget& owner) {
  std::vector<Notice> faults;
  std::vector<FieldEdit> edits;
  for (const TypedValue& value : values) {
    const QString fault = FaultOf(value);
    if (!fault.isEmpty()) faults.push_back(Refused(value.caption, fault + '.'));
    if (value.shown.field) edits.push_back({*value.shown.field, ToBytes(value.value)});
  }
  if (!faults.empty()) return faults;
  const QString& file = values.front().shown.file;
  const BlockName& block = values.front().shown.block;
  const std::optional<std::string> text = TextOfFile(file, launcher);
  if (!text) return {Refused(values.front().caption, "the file cannot be read.")};
  const FieldPlan plan = PlanFieldEdits(*text, block, edits);
  if (plan.refused()) return NoticesOfRefusals(values, plan, launcher);
  if (!plan.edits.empty()) {
    if (!AgreesForAll(block, launcher, messages, owner)) return {};
    // The text may have changed while the question was open.
    const auto planAnew = [&](std::string_view bytes) {
      return TextEditsOf(PlanFieldEdits(bytes, block, edits).edits);
    };
    if (!launcher.editInManualEditor(file, planAnew)) return {};
  }
  GoTo(file, plan.place, launcher);
  return {};
}

}  // namespace korvane
