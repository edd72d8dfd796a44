// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDialog>

#include <functional>

class QLabel;
class QLineEdit;
class QPushButton;

namespace korvane {

// Asks for a name, and says beside it why it cannot be had.
class NewNameDialog : public QDialog {
  Q_OBJECT

 public:
  // The reason why not, as a sentence; empty for a name that can be had.
  using WhyNot = std::function<QString(const QString& name)>;

  NewNameDialog(const QString& caption, const QString& first, WhyNot whyNot, QWidget* parent);

  QString name() const;

 private:
  void look();

  WhyNot whyNot_;
  QLineEdit* name_;
  QLabel* reason_;
  QPushButton* ok_;
};

}  // namespace korvane
