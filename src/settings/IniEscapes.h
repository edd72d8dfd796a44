// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace korvane {

// Names and values as QSettings writes them into an INI file, in UTF-8.

QByteArray EscapedIniKey(const QString& key);
QString UnescapedIniKey(const QByteArray& bytes);

QByteArray EscapedIniValue(const QString& value);
// A value with commas outside of quotes is a list; its items come with ", " between them. Nothing for what is
// no text.
std::optional<QString> UnescapedIniValue(const QByteArray& bytes);

}  // namespace korvane
