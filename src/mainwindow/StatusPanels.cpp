// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/StatusPanels.h"

#include <QLabel>
#include <QStatusBar>
#include <QToolButton>

namespace korvane {

StatusPanels::StatusPanels(QStatusBar& bar) : problems_(new QToolButton), trouble_(new QLabel) {
  constexpr std::array kStretch = {5, 3, 3};
  for (std::size_t i = 0; i < panels_.size(); ++i) {
    panels_[i] = new QLabel;
    panels_[i]->setObjectName("Panel" + QString::number(i + 1));
    panels_[i]->setTextFormat(Qt::PlainText);
    // A long text must not widen the window; what is counted is short, and seen whole.
    panels_[i]->setSizePolicy(i == count ? QSizePolicy::Minimum : QSizePolicy::Ignored, QSizePolicy::Fixed);
    bar.addWidget(panels_[i], kStretch[i]);
  }
  problems_->setObjectName("problems");
  problems_->setToolTip("Check the Data");
  problems_->setAutoRaise(true);
  problems_->setFocusPolicy(Qt::NoFocus);  // its command has a key
  problems_->setMaximumHeight(panels_[path]->sizeHint().height());
  bar.addWidget(problems_);
  problems_->hide();
  trouble_->setObjectName("LblTrouble");
  trouble_->setTextFormat(Qt::PlainText);
  trouble_->setMinimumWidth(1);
  bar.addPermanentWidget(trouble_);
  trouble_->hide();
}

void StatusPanels::show(Panel panel, const QString& text) {
  QLabel& shown = *panels_[panel];
  shown.setText(text);
  shown.show();
}

void StatusPanels::showProblems(const QString& counts) {
  problems_->setText(counts);
  problems_->show();
}

void StatusPanels::showTrouble(const QString& text, const QString& detail) {
  trouble_->setText(text);
  trouble_->setToolTip(detail);
  trouble_->setVisible(!text.isEmpty());
}

}  // namespace korvane
