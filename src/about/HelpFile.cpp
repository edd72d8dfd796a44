// SPDX-License-Identifier: GPL-3.0-or-later
#include "about/HelpFile.h"

#include <QRegularExpression>

#include <algorithm>

#include "files/FileBytes.h"
#include "files/NativePath.h"

namespace korvane {

namespace {

constexpr std::string_view kFirstLine = "Korvane help file, version 1\n";
constexpr QChar kPageMark = u'\f';
const QString kBlockMark = QStringLiteral("---\n");
const QString kTopic = QStringLiteral("topic:");
const QString kHeading = QStringLiteral("## ");

QString ProblemWith(const QString& path, std::string_view bytes) {
  const QString name = '"' + path + '"';
  if (!FileExists(ProgramPath(path.toStdString())))
    return "The help file " + name + " is missing or cannot be read.";
  if (bytes.empty()) return "The help file " + name + " is empty.";
  if (!bytes.starts_with(kFirstLine)) return "The file " + name + " is not a help file of this program.";
  return {};
}

int TopicOf(const QString& block) {
  for (const QString& line : block.split('\n')) {
    if (line.startsWith(kTopic)) return line.mid(kTopic.size()).trimmed().toInt();
  }
  return 0;
}

QString TitleOf(const QString& markdown) {
  static const QRegularExpression title("^# (.*)$", QRegularExpression::MultilineOption);
  return title.match(markdown).captured(1).trimmed();
}

// Takes the block of "name: value" lines off the beginning of the page's text.
QString TakeBlock(QString& text) {
  if (!text.startsWith(kBlockMark)) return {};
  const qsizetype end = text.indexOf('\n' + kBlockMark, kBlockMark.size() - 1);
  if (end < 0) return {};
  const QString block = text.mid(kBlockMark.size(), end - kBlockMark.size());
  text.remove(0, end + 1 + kBlockMark.size());
  return block;
}

HelpPage PageOf(const QString& text) {
  const qsizetype nameEnd = text.indexOf('\n');
  HelpPage page;
  page.name = text.left(nameEnd).trimmed();
  page.markdown = nameEnd < 0 ? QString() : text.mid(nameEnd + 1);
  page.topic = TopicOf(TakeBlock(page.markdown));
  page.title = TitleOf(page.markdown);
  return page;
}

}  // namespace

HelpFile::HelpFile(const QString& path) {
  FileBytes file;
  file.read(ProgramPath(path.toStdString()), [] {});
  problem_ = ProblemWith(path, file.bytes());
  if (!problem_.isEmpty()) return;
  const std::string_view pages = file.bytes().substr(kFirstLine.size());
  const QString text = QString::fromUtf8(pages).remove('\r');
  for (const QString& page : text.split(kPageMark, Qt::SkipEmptyParts)) pages_.push_back(PageOf(page));
  if (pages_.empty()) problem_ = "The help file \"" + path + "\" has no pages.";
}

const HelpPage* HelpFile::page(const QString& name) const {
  const auto found = std::ranges::find(pages_, name, &HelpPage::name);
  return found == pages_.end() ? nullptr : &*found;
}

const HelpPage* HelpFile::topic(int number) const {
  const auto found = std::ranges::find(pages_, number, &HelpPage::topic);
  return number == 0 || found == pages_.end() ? nullptr : &*found;
}

std::vector<ContentsEntry> HelpFile::contents() const {
  static const QRegularExpression entry("^- \\[(.+?)\\]\\((.+?)\\)");
  std::vector<ContentsEntry> entries;
  if (pages_.empty()) return entries;
  QString heading;
  for (const QString& line : pages_.front().markdown.split('\n')) {
    if (line.startsWith(kHeading)) heading = line.mid(kHeading.size()).trimmed();
    const QRegularExpressionMatch match = entry.match(line);
    if (match.hasMatch()) entries.push_back({heading, match.captured(1), match.captured(2)});
  }
  return entries;
}

}  // namespace korvane
