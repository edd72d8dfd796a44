// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/BlockPath.h"

#include <QEvent>

#include <algorithm>

#include "controls/ReadableColours.h"
#include "manualeditor/BlockOutline.h"

namespace korvane {

namespace {

const QString kBetween = QStringLiteral(" \u203A ");
constexpr int kMargin = 8;  // pixels

}  // namespace

BlockPath::BlockPath(BlockOutline& outline, QWidget* parent) : LinkLabel(parent), outline_(outline) {
  setTextFormat(Qt::RichText);
  setAccessibleName("Block at the cursor");
  setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  setContentsMargins(kMargin, 0, kMargin, 0);
  setTextInteractionFlags(Qt::LinksAccessibleByMouse | Qt::LinksAccessibleByKeyboard);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  connect(this, &QLabel::linkActivated, this, &BlockPath::follow);
  connect(&outline_, &BlockOutline::currentChanged, this, &BlockPath::show);
}

QString BlockPath::linkTo(const TextBlock& block, int width) const {
  const QString shown = fontMetrics().elidedText(BlockOutline::captionOf(block), Qt::ElideMiddle, width);
  return QStringLiteral("<a href=\"%1\" style=\"color:%2\">%3</a>")
      .arg(QString::number(block.firstLine),
           ReadableLink(palette(), palette().color(QPalette::Window)).name(), shown.toHtmlEscaped());
}

// Every step may take its share of the width and what the steps behind it have left.
void BlockPath::show() {
  const std::vector<const TextBlock*> path = outline_.currentPath();
  QStringList captions;
  QStringList links;
  const int between =
      fontMetrics().horizontalAdvance(kBetween) * std::max(static_cast<int>(path.size()) - 1, 0);
  int left = contentsRect().width() - between;
  for (std::size_t i = path.size(); i-- > 0;) {
    captions.prepend(BlockOutline::captionOf(*path[i]));
    const int share = std::max(left / static_cast<int>(i + 1), 0);
    left -= std::min(share, fontMetrics().horizontalAdvance(captions.front()));
    links.prepend(linkTo(*path[i], share));
  }
  steps_ = captions.join(kBetween);
  setText(links.join(kBetween));
  setToolTip(steps_.toHtmlEscaped());
}

void BlockPath::follow(const QString& link) {
  for (const TextBlock* block : outline_.currentPath()) {
    if (block->firstLine == link.toUInt()) {
      outline_.goTo(*block);
      return;
    }
  }
}

void BlockPath::resizeEvent(QResizeEvent* event) {
  LinkLabel::resizeEvent(event);
  show();
}

void BlockPath::changeEvent(QEvent* event) {
  LinkLabel::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) show();
}

}  // namespace korvane
