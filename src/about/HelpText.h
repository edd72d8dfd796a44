// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

class QPalette;
class QString;
class QTextDocument;

namespace korvane {

// Sets a page's Markdown as the document's text, with tables and headings well apart.
void SetHelpText(QTextDocument& document, const QString& markdown, const QPalette& palette);

}  // namespace korvane
