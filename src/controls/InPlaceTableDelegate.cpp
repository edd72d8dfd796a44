// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/InPlaceTableDelegate.h"

#include <QAbstractListModel>
#include <QComboBox>
#include <QCompleter>
#include <QLineEdit>
#include <QPainter>

#include "controls/InPlaceTableModel.h"
#include "controls/ShownText.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr int kDark = 128;  // lightness of a background below which pure red cannot be read
constexpr int kVisibleChoices = 20;
constexpr std::size_t kLongestTyped = 32767;  // what a line to type in holds

// Shows a list of choices without a copy of it.
class ChoiceModel : public QAbstractListModel {
 public:
  ChoiceModel(ChoiceList choices, QObject* parent)
      : QAbstractListModel(parent), choices_(std::move(choices)) {}

  int rowCount(const QModelIndex& parent = {}) const override {
    return parent.isValid() || !choices_ ? 0 : static_cast<int>(choices_->size());
  }
  QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override {
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::EditRole)) return {};
    const std::string_view choice = (*choices_)[static_cast<std::size_t>(index.row())];
    const QString text = FromBytes(choice.substr(0, kLongestTyped));
    return role == Qt::DisplayRole ? ShownText(text) : text;
  }

 private:
  ChoiceList choices_;
};

QColor CaptionRed(const QPalette& palette) {
  const bool dark = palette.color(QPalette::Base).lightness() < kDark;
  return dark ? QColor(255, 120, 120) : QColor(255, 0, 0);
}

QLineEdit* LineOf(QWidget* editor) {
  const auto* box = qobject_cast<QComboBox*>(editor);
  return box ? box->lineEdit() : qobject_cast<QLineEdit*>(editor);
}

}  // namespace

void InPlaceTableDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& cell) const {
  QStyledItemDelegate::initStyleOption(option, cell);
  option->text = ShownText(option->text);
  if (cell.column() != InPlaceTableModel::kCaption || !model_.shownRow(cell.row()).redAndBold) return;
  option->font.setBold(true);
  option->palette.setColor(QPalette::Text, CaptionRed(option->palette));
}

void InPlaceTableDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& cell) const {
  if (!model_.isSeparator(cell.row())) {
    QStyledItemDelegate::paint(painter, option, cell);
    return;
  }
  const bool red = cell.column() == InPlaceTableModel::kCaption && model_.shownRow(cell.row()).redAndBold;
  painter->setPen(red ? CaptionRed(option.palette) : option.palette.color(QPalette::Mid));
  const int middle = option.rect.center().y();
  painter->drawLine(option.rect.left(), middle, option.rect.right(), middle);
}

QWidget* InPlaceTableDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                            const QModelIndex& cell) const {
  const bool isChoice = model_.shownRow(cell.row()).kind == EditKind::choice;
  QWidget* editor =
      isChoice ? createChoiceBox(parent, cell) : QStyledItemDelegate::createEditor(parent, option, cell);
  const QString caption = cell.siblingAtColumn(InPlaceTableModel::kCaption).data().toString();
  editor->setAccessibleName(caption);
  editor->setAccessibleDescription(caption);  // a reader's name of a list may be its text
  return editor;
}

QWidget* InPlaceTableDelegate::createChoiceBox(QWidget* parent, const QModelIndex& cell) const {
  auto* box = new QComboBox(parent);
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);  // never measures every choice
  box->setEditable(true);
  box->setInsertPolicy(QComboBox::NoInsert);
  box->setMaxVisibleItems(kVisibleChoices);
  box->setModel(new ChoiceModel(model_.shownRow(cell.row()).choices, box));
  box->completer()->setCompletionMode(QCompleter::PopupCompletion);
  box->completer()->setFilterMode(Qt::MatchContains);
  return box;
}

void InPlaceTableDelegate::setEditorData(QWidget* editor, const QModelIndex& cell) const {
  const QString text = cell.data(Qt::EditRole).toString();
  if (auto* box = qobject_cast<QComboBox*>(editor))
    box->setCurrentIndex(box->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive));
  QLineEdit* line = LineOf(editor);
  line->setText(text);
  line->selectAll();
}

void InPlaceTableDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                        const QModelIndex& cell) const {
  const QString text = LineOf(editor)->text();
  if (text != cell.data(Qt::EditRole).toString()) model->setData(cell, text);
}

void InPlaceTableDelegate::updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                                                const QModelIndex& cell) const {
  QStyledItemDelegate::updateEditorGeometry(editor, option, cell);
  if (const int missing = editor->sizeHint().height() - editor->height(); missing > 0)
    editor->setGeometry(editor->geometry().adjusted(0, -missing / 2, 0, missing - missing / 2));
}

}  // namespace korvane
