// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/VersionName.h"

#include <QRegularExpression>

#include <algorithm>
#include <array>

namespace korvane {

namespace {

constexpr int kDigits = 8;               // so that names sort in the order of their numbers
constexpr qsizetype kLongestName = 200;  // bytes in UTF-8, which leaves space for what is added
const QString kTimeFormat = QStringLiteral("yyyy-MM-dd HH.mm.ss");
const QString kFormerTimeFormat = QStringLiteral("yyyy-MM-dd HH.mm.ss.zzz");

struct KindWord {
  KeptVersion::Kind kind;
  const char* word;
};
constexpr std::array kKindWords = {KindWord{KeptVersion::Kind::replaced, "replaced"},
                                   KindWord{KeptVersion::Kind::closedUnsaved, "unsaved"},
                                   KindWord{KeptVersion::Kind::lostInCrash, "crashed"}};

QString WordOf(KeptVersion::Kind kind) {
  const auto* found = std::ranges::find(kKindWords, kind, &KindWord::kind);
  return QString::fromLatin1(found->word);
}

KeptVersion::Kind KindOf(const QString& word) {
  const auto* found =
      std::ranges::find_if(kKindWords, [&](const KindWord& each) { return word == each.word; });
  return found->kind;
}

std::optional<KeptVersion> FormerVersionOfName(const QString& name) {
  static const QRegularExpression pattern(
      "^(\\d{4}-\\d\\d-\\d\\d \\d\\d\\.\\d\\d\\.\\d\\d\\.\\d{3})(?:\\.\\d{3,4})? (unsaved (part of )?)?");
  const QRegularExpressionMatch match = pattern.match(name);
  if (!match.hasMatch()) return std::nullopt;
  KeptVersion version;
  version.time = QDateTime::fromString(match.captured(1), kFormerTimeFormat).toUTC();
  if (!match.captured(2).isEmpty()) version.kind = KeptVersion::Kind::closedUnsaved;
  version.part = !match.captured(3).isEmpty();
  return version;
}

}  // namespace

QString FittingName(QString name) {
  while (name.toUtf8().size() > kLongestName) name.remove(0, name.at(0).isHighSurrogate() ? 2 : 1);
  return name;
}

QString NameOfVersion(const KeptVersion& version, const QString& fileName) {
  return QStringLiteral("%1 %2Z %3%4%5 %6")
      .arg(version.number, kDigits, 10, QChar('0'))
      .arg(version.time.toUTC().toString(kTimeFormat), WordOf(version.kind),
           QLatin1String(version.part ? "-part" : ""), QLatin1String(version.utf8 ? "-utf8" : ""),
           FittingName(fileName));
}

std::optional<KeptVersion> VersionOfName(const QString& name) {
  static const QRegularExpression pattern(
      "^(\\d{8,19}) (\\d{4}-\\d\\d-\\d\\d \\d\\d\\.\\d\\d\\.\\d\\d)Z "
      "(replaced|unsaved|crashed)(-part)?(-utf8)? ");
  const QRegularExpressionMatch match = pattern.match(name);
  if (!match.hasMatch()) return FormerVersionOfName(name);
  KeptVersion version;
  version.number = match.captured(1).toULongLong();
  version.time = QDateTime::fromString(match.captured(2), kTimeFormat);
  version.time.setTimeSpec(Qt::UTC);
  version.kind = KindOf(match.captured(3));
  version.part = !match.captured(4).isEmpty();
  version.utf8 = !match.captured(5).isEmpty();
  return version;
}

}  // namespace korvane
