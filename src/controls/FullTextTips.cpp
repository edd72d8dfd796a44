// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/FullTextTips.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QHelpEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QStyleOptionFrame>
#include <QTabBar>
#include <QToolTip>
#include <QVariant>

#include "controls/ShownText.h"

namespace korvane {

namespace {

constexpr int kFieldMargin = 2;  // pixels that a field keeps free on either side of its text

QSize SizeOf(const QWidget& widget, const QString& text) {
  return widget.fontMetrics().size(Qt::TextShowMnemonic, text);
}

// As it is shown: an "&" marks a mnemonic, two of them stand for one.
QString WithoutMnemonics(const QString& caption) {
  QString text;
  for (qsizetype i = 0; i < caption.size(); ++i) {
    if (caption[i] == u'&' && i + 1 < caption.size()) ++i;
    text += caption[i];
  }
  return text;
}

QString CutCaption(const QWidget& widget, const QString& caption, int width) {
  return SizeOf(widget, caption).width() > width ? WithoutMnemonics(caption) : QString();
}

QString CutIn(const QLineEdit& field) {
  QStyleOptionFrame frame;
  frame.initFrom(&field);
  frame.lineWidth =
      field.hasFrame() ? field.style()->pixelMetric(QStyle::PM_DefaultFrameWidth, &frame, &field) : 0;
  const QRect inside = field.style()->subElementRect(QStyle::SE_LineEditContents, &frame, &field);
  const int width =
      inside.width() - field.textMargins().left() - field.textMargins().right() - 2 * kFieldMargin;
  const QString text = field.displayText();
  return field.fontMetrics().horizontalAdvance(text) > width ? text : QString();
}

// The chosen entry may stand for more than its text says; its tooltip tells what.
QString CutIn(const QComboBox& list) {
  if (const QString whole = list.currentData(Qt::ToolTipRole).toString(); !whole.isEmpty()) return whole;
  QStyleOptionComboBox option;
  option.initFrom(&list);
  const QRect inside =
      list.style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, &list);
  const QString text = list.currentText();
  return list.fontMetrics().horizontalAdvance(text) > inside.width() ? text : QString();
}

QString CutIn(const QLabel& label) {
  const bool rich = label.textFormat() == Qt::RichText ||
                    (label.textFormat() == Qt::AutoText && Qt::mightBeRichText(label.text()));
  if (rich || label.wordWrap()) return {};
  if (label.buddy() != nullptr) return CutCaption(label, label.text(), label.contentsRect().width());
  const bool cut = label.fontMetrics().size(0, label.text()).width() > label.contentsRect().width();
  return cut ? label.text() : QString();
}

QString CutIn(const QTabBar& tabs, const QPoint& at) {
  const int tab = tabs.tabAt(at);
  if (tab < 0) return {};
  const QRect seen = tabs.tabRect(tab).intersected(tabs.rect());
  const int space = tabs.style()->pixelMetric(QStyle::PM_TabBarTabHSpace, nullptr, &tabs);
  return CutCaption(tabs, tabs.tabText(tab), seen.width() - space);
}

QString CutIn(const QHeaderView& headings, const QPoint& at) {
  const int section = headings.logicalIndexAt(at);
  if (section < 0 || headings.sectionSizeHint(section) <= headings.sectionSize(section)) return {};
  return headings.model()->headerData(section, headings.orientation()).toString();
}

QString CutIn(const QAbstractItemView& view, const QPoint& at) {
  if (const auto* headings = qobject_cast<const QHeaderView*>(&view)) return CutIn(*headings, at);
  const QModelIndex entry = view.indexAt(at);
  if (!entry.isValid()) return {};
  const QSize wanted = view.sizeHintForIndex(entry);
  const QRect place = view.visualRect(entry);
  const bool cut = wanted.width() > place.intersected(view.viewport()->rect()).width() ||
                   wanted.height() > place.height() + view.fontMetrics().leading();
  return cut ? entry.data().toString() : QString();
}

QString OwnTip(const QWidget& widget, const QPoint& at) {
  const auto* view = qobject_cast<const QAbstractItemView*>(widget.parentWidget());
  if (view == nullptr || view->viewport() != &widget) return widget.toolTip();
  const QModelIndex entry = view->indexAt(at);
  return entry.isValid() ? entry.data(Qt::ToolTipRole).toString() : QString();
}

constexpr const char* kTipAt = "tipAt";

QString GivenTip(const QWidget& widget, const QPoint& at) {
  const auto tip = widget.property(kTipAt).value<TipAt>();
  return tip ? tip(at) : QString();
}

// Markup in it is shown as it is. `blanks`: as CSS calls it, whether long lines are wrapped.
QString Paragraph(const QString& plain, const char* blanks = "pre-wrap") {
  if (plain.isEmpty()) return {};
  return QStringLiteral("<p style=\"white-space:%1\">").arg(blanks) + plain.toHtmlEscaped() + "</p>";
}

}  // namespace

QString CutTextAt(const QWidget& widget, const QPoint& at) {
  const auto* view = qobject_cast<const QAbstractItemView*>(widget.parentWidget());
  if (view != nullptr && view->viewport() == &widget) return CutIn(*view, at);
  if (const auto* field = qobject_cast<const QLineEdit*>(&widget)) return CutIn(*field);
  if (const auto* list = qobject_cast<const QComboBox*>(&widget)) return CutIn(*list);
  if (const auto* label = qobject_cast<const QLabel*>(&widget)) return CutIn(*label);
  if (const auto* tabs = qobject_cast<const QTabBar*>(&widget)) return CutIn(*tabs, at);
  if (const auto* frame = qobject_cast<const QGroupBox*>(&widget))
    return CutCaption(widget, frame->title(), widget.width());
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  const bool hasCaption = qobject_cast<const QPushButton*>(&widget) != nullptr ||
                          qobject_cast<const QCheckBox*>(&widget) != nullptr ||
                          qobject_cast<const QRadioButton*>(&widget) != nullptr;
  return hasCaption ? CutCaption(widget, button->text(),
                                 widget.width() -
                                     (widget.sizeHint().width() - SizeOf(widget, button->text()).width()))
                    : QString();
}

void FullTextTips::install() {
  QCoreApplication* application = QCoreApplication::instance();
  application->installEventFilter(new FullTextTips(application));
}

bool FullTextTips::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::ToolTip || !watched->isWidgetType()) return false;
  auto& widget = *static_cast<QWidget*>(watched);
  const auto* help = static_cast<QHelpEvent*>(event);
  const QString cut = CutTextAt(widget, help->pos());
  const QString given = GivenTip(widget, help->pos());
  if (cut.isEmpty() && given.isEmpty()) return false;
  const QString own = OwnTip(widget, help->pos());
  const QString shownOwn = own == cut ? QString() : Qt::mightBeRichText(own) ? own : Paragraph(own);
  QToolTip::showText(help->globalPos(), Paragraph(ShownText(cut)) + shownOwn + Paragraph(given, "pre"),
                     &widget);
  return true;
}

void SetTipAt(QWidget& widget, const TipAt& tip) {
  widget.setProperty(kTipAt, QVariant::fromValue(tip));
}

}  // namespace korvane
