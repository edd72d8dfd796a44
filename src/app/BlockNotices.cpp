// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/BlockNotices.h"

#include "app/EditorLauncher.h"
#include "app/ManualEditRequest.h"
#include "files/FileBytes.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

// Puts the sentences about one block together.
class BlockSentences {
 public:
  BlockSentences(const ShownBlock& block, const LookedFor& sought, EditorLauncher& launcher)
      : block_(block), sought_(sought), launcher_(launcher) {}

  std::vector<Notice> all() {
    if (block_.line == 0) {
      sayWhyNothing();
    } else {
      sayWhichBlock();
      sayWhereItEnds();
    }
    return std::move(notices_);
  }

 private:
  void sayWhyNothing();
  void sayWhichBlock();
  void sayWhereItEnds();
  void sayReskin();
  Notice& sentence(const QString& text) { return notices_.emplace_back(text); }
  Notice& addLine(Notice& notice, std::size_t line) {
    return AddLine(notice, QStringLiteral("line %1").arg(line), sought_.file, line, launcher_);
  }

  const ShownBlock& block_;
  const LookedFor& sought_;
  EditorLauncher& launcher_;
  std::vector<Notice> notices_;
};

void BlockSentences::sayReskin() {
  Notice& notice =
      sentence(sought_.name + " is a reskin of " + FromBytes(block_.ownBase) + "; it stands in ");
  addLine(notice, block_.ownLine).say(".");
}

void BlockSentences::sayWhyNothing() {
  if (!block_.ownBase.empty()) return sayReskin();
  if (block_.ownLine == 0) {
    sentence("The file has no block of the name " + sought_.name + ".");
    return;
  }
  Notice& notice = sentence("No values are found for " + sought_.name + ": its header in ");
  addLine(notice, block_.ownLine)
      .say(QStringLiteral(" is not written as \"%1\", one space and the name.")
               .arg(QString::fromUtf8(sought_.kind)));
}

void BlockSentences::sayWhichBlock() {
  const QString shown = FromBytes(block_.name);
  if (shown.compare(sought_.name, Qt::CaseInsensitive) == 0) return;
  Notice& notice = sentence("These are the values of " + shown + " in ");
  addLine(notice, block_.line);
  if (block_.ownLine == 0) {
    notice.say("; the file has no block of the name " + sought_.name + ".");
  } else if (block_.ownBase.empty()) {
    notice.say("; " + sought_.name + " stands in ");
    addLine(notice, block_.ownLine).say(".");
  } else {
    notice.say(".");
    sayReskin();
  }
}

void BlockSentences::sayWhereItEnds() {
  if (block_.hiddenLines > 0) {
    Notice& notice = sentence("The block ends early: an \"End\" in the first column in ");
    addLine(notice, block_.lastLine)
        .say(block_.hiddenLines == 1
                 ? QStringLiteral("; one line behind it is not shown.")
                 : QStringLiteral("; %1 lines behind it are not shown.").arg(block_.hiddenLines));
  }
  if (block_.strangeLines > 0) {
    Notice& notice = sentence("The block has no \"End\" in the first column of its own: what stands from ");
    addLine(notice, block_.lastLine - block_.strangeLines + 1).say(" on belongs to what follows it.");
  }
}

}  // namespace

std::vector<Notice> NoticesOf(const ShownBlock& block, const LookedFor& sought, EditorLauncher& launcher) {
  return BlockSentences(block, sought, launcher).all();
}

std::optional<ShownBlock> ReadShownBlock(const LookedFor& sought) {
  FileBytes file;
  if (!file.read(ProgramPath(sought.file.toStdString()), {})) return std::nullopt;
  return FindShownBlock(file.bytes(), sought.kind, ToBytes(sought.name));
}

std::vector<Notice> ReadNotices(const LookedFor& sought, EditorLauncher& launcher, ShownBlock& block) {
  const std::optional<ShownBlock> read = ReadShownBlock(sought);
  if (!read) return {};
  block = *read;
  return NoticesOf(block, sought, launcher);
}

Notice& AddLine(Notice& notice, const QString& caption, const QString& file, std::size_t line,
                EditorLauncher& launcher) {
  return notice.link(caption, [&launcher, file, line] {
    ManualEditRequest request;
    request.ManualEditFile = file;
    request.place.line = static_cast<int>(line);
    launcher.showManualEditor(request);
  });
}

}  // namespace korvane
