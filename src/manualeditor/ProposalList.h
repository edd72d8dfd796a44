// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QListView>

#include <vector>

#include "writing/Proposals.h"

class QStandardItemModel;

namespace korvane {

// A list of proposals beside a text, which keeps the keyboard: who shows it moves the choice.
class ProposalList : public QListView {
  Q_OBJECT

 public:
  explicit ProposalList(QWidget& owner);

  // Below the word, which is given on the screen, or above it where there is more space. The first one is
  // chosen.
  void show(const std::vector<Proposal>& proposals, const QRect& word);
  QString chosen() const;
  void move(int rows);
  void movePage(int pages);

 Q_SIGNALS:
  void taken();

 private:
  void fill(const std::vector<Proposal>& proposals);
  void place(const QRect& word);

  QStandardItemModel* rows_;
};

}  // namespace korvane
