// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/NoticeBar.h"

#include <QAccessible>
#include <QApplication>
#include <QEvent>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>

#include "controls/LinkLabel.h"
#include "controls/ReadableColours.h"
#include "controls/ShownText.h"

namespace korvane {

namespace {

constexpr int kMostLines = 7;     // of text; beyond them the bar scrolls
constexpr int kLongestWord = 48;  // characters; longer ones are broken, or they would widen the window
constexpr int kMargin = 4;        // pixels
constexpr QKeyCombination kGoHere(Qt::CTRL, Qt::Key_F6);
constexpr QChar kBreakHere(0x200b);

QString WithBreaks(const QString& text) {
  QString broken;
  int wordLength = 0;
  for (const QChar c : text) {
    wordLength = c.isSpace() ? 0 : wordLength + 1;
    if (wordLength > 0 && wordLength % kLongestWord == 0) broken += kBreakHere;
    broken += c;
  }
  return broken;
}

// Told apart from the window around it, in light and in dark palettes.
QColor GroundOf(const QPalette& palette) {
  const QColor window = palette.color(QPalette::Window);
  const bool dark = window.lightness() < 128;
  const QColor tint = dark ? QColor(120, 95, 20) : QColor(255, 225, 130);
  const auto mix = [](int a, int b) { return (a * 3 + b * 2) / 5; };
  return {mix(window.red(), tint.red()), mix(window.green(), tint.green()), mix(window.blue(), tint.blue())};
}

}  // namespace

Notice& Notice::say(const QString& text) {
  if (!text.isEmpty()) pieces_.push_back({ShownText(text), nullptr});
  return *this;
}

Notice& Notice::link(const QString& caption, Follow follow) {
  pieces_.push_back({ShownText(caption), std::move(follow)});
  return *this;
}

Notice& Notice::button(const QString& caption, Follow follow) {
  buttons_.push_back({caption, std::move(follow)});
  return *this;
}

QString Notice::plainText() const {
  QString text;
  for (const Piece& piece : pieces_) text += piece.text;
  return text;
}

// A link's address is the number of its piece. Its colour has to stand here: a label's palette does not count
// for links.
QString Notice::richText(const QColor& linkColour) const {
  QString text;
  for (std::size_t i = 0; i < pieces_.size(); ++i) {
    const QString shown = WithBreaks(pieces_[i].text).toHtmlEscaped();
    text += pieces_[i].follow ? QStringLiteral("<a style=\"color:%1\" href=\"%2\">%3</a>")
                                    .arg(linkColour.name(), QString::number(i), shown)
                              : shown;
  }
  return text;
}

NoticeBar::NoticeBar(QWidget* parent) : QScrollArea(parent) {
  setObjectName("NoticeBar");
  setAccessibleName("Notices");
  setFrameShape(QFrame::NoFrame);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setWidgetResizable(true);
  setFocusPolicy(Qt::NoFocus);
  QSizePolicy policy(QSizePolicy::Ignored, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
  new QShortcut(kGoHere, this, this, &NoticeBar::takeKeyboard);
  hide();
}

QWidget* NoticeBar::below(QWidget* content, NoticeBar* bar) {
  auto* both = new QWidget;
  auto* layout = new QVBoxLayout(both);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(content, 1);
  layout->addWidget(bar);
  return both;
}

void NoticeBar::tell(int part, std::vector<Notice> notices) {
  if (notices.empty() && !parts_.contains(part)) return;
  const QStringList before = sentences();
  if (notices.empty()) {
    parts_.erase(part);
  } else {
    parts_[part] = std::move(notices);
  }
  rebuild();
  if (sentences() != before) tellReader();
}

// Where Qt passes no alerts on, screen readers say what changes in the description of what has the keyboard.
void NoticeBar::tellReader() {
  if (!isHidden()) {
    QAccessibleEvent event(this, QAccessible::Alert);
    QAccessible::updateAccessibility(&event);
  }
  QWidget* focus = window()->focusWidget();
  if (told_ != focus) {
    if (told_ != nullptr) told_->setAccessibleDescription(ownDescription_);
    told_ = isAncestorOf(focus) ? nullptr : focus;
    ownDescription_ = told_ == nullptr ? QString() : told_->accessibleDescription();
  }
  if (told_ != nullptr) told_->setAccessibleDescription(isHidden() ? ownDescription_ : sentences().join(' '));
}

QStringList NoticeBar::sentences() const {
  QStringList texts;
  for (const auto& [part, notices] : parts_) {
    for (const Notice& notice : notices) texts += notice.plainText();
  }
  return texts;
}

void NoticeBar::rebuild() {
  const bool hadKeyboard = isAncestorOf(QApplication::focusWidget());
  auto* rows = new QWidget;
  texts_.clear();
  auto* layout = new QVBoxLayout(rows);
  layout->setContentsMargins(2 * kMargin, kMargin, 2 * kMargin, kMargin);
  layout->setSpacing(kMargin);
  for (const auto& [part, notices] : parts_) {
    for (const Notice& notice : notices) layout->addWidget(makeRow(notice));
  }
  setWidget(rows);
  applyColours();
  setVisible(!parts_.empty());
  updateGeometry();
  if (hadKeyboard) giveKeyboardBack();
}

void NoticeBar::takeKeyboard() {
  QWidget* focus = QApplication::focusWidget();
  if (!isAncestorOf(focus)) before_ = focus;
  for (auto* row : widget()->findChildren<QWidget*>()) {
    const auto* label = qobject_cast<QLabel*>(row);
    const bool isLink = label != nullptr && label->text().contains("<a ");
    if (!isLink && qobject_cast<QPushButton*>(row) == nullptr) continue;
    return row->setFocus(Qt::TabFocusReason);
  }
}

void NoticeBar::giveKeyboardBack() {
  if (before_ != nullptr) before_->setFocus();
}

bool NoticeBar::eventFilter(QObject* watched, QEvent* event) {
  const bool escape =
      event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (!escape) return QScrollArea::eventFilter(watched, event);
  giveKeyboardBack();
  return true;
}

QWidget* NoticeBar::makeRow(const Notice& notice) {
  auto* row = new QWidget;
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  auto* label = new LinkLabel;
  label->setObjectName("Notice");
  label->setTextFormat(Qt::RichText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextBrowserInteraction);
  label->setAccessibleName(notice.plainText());
  label->setFocusPolicy(Qt::TabFocus);
  label->installEventFilter(this);
  connect(label, &QLabel::linkActivated, this, [this, pieces = notice.pieces_](const QString& number) {
    follow(pieces.at(number.toULong()).follow);
  });
  layout->addWidget(label, 1);
  texts_.push_back({label, notice});
  for (const Notice::Piece& button : notice.buttons_) {
    auto* push = new QPushButton(button.text);
    push->setObjectName("NoticeButton");
    push->setFocusPolicy(Qt::TabFocus);
    push->installEventFilter(this);
    connect(push, &QPushButton::clicked, this, [this, run = button.follow] { follow(run); });
    layout->addWidget(push, 0, Qt::AlignTop);
  }
  return row;
}

// Not at once: what is followed may well replace the row that it stands in.
void NoticeBar::follow(const Notice::Follow& follow) {
  QMetaObject::invokeMethod(this, follow, Qt::QueuedConnection);
}

void NoticeBar::applyColours() {
  if (widget() == nullptr) return;
  QPalette colours = parentWidget() == nullptr ? palette() : parentWidget()->palette();
  const QColor ground = GroundOf(colours);
  const QColor link = ReadableLink(colours, ground);
  colours.setColor(QPalette::Window, ground);
  widget()->setPalette(colours);
  widget()->setAutoFillBackground(true);
  for (const auto& [label, notice] : texts_) {
    label->setPalette(colours);
    label->setText(notice.richText(link));
  }
}

int NoticeBar::heightForWidth(int width) const {
  if (widget() == nullptr) return 0;
  const int most = kMostLines * fontMetrics().lineSpacing() + 2 * kMargin;
  return std::min(most, widget()->layout()->totalHeightForWidth(width));
}

QSize NoticeBar::sizeHint() const {
  return {width(), heightForWidth(width())};
}

QSize NoticeBar::minimumSizeHint() const {
  return {0, 0};
}

void NoticeBar::changeEvent(QEvent* event) {
  QScrollArea::changeEvent(event);
  if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) applyColours();
}

void NoticeBar::resizeEvent(QResizeEvent* event) {
  QScrollArea::resizeEvent(event);
  if (event->oldSize().width() != event->size().width()) updateGeometry();
}

}  // namespace korvane
