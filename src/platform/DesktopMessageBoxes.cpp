// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/DesktopMessageBoxes.h"

#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

#include "platform/HelpViewer.h"

namespace korvane {

namespace {

QMessageBox::Icon IconOf(Message::Icon icon) {
  switch (icon) {
    case Message::Icon::information:
      return QMessageBox::Information;
    case Message::Icon::question:
      return QMessageBox::Question;
    case Message::Icon::critical:
      return QMessageBox::Critical;
    case Message::Icon::none:
      break;
  }
  return QMessageBox::NoIcon;
}

void AddHelpButton(QMessageBox& box, HelpViewer& help, int topic) {
  QPushButton* button = box.addButton(QMessageBox::Help);
  button->disconnect();  // a help button would close the box
  QObject::connect(button, &QPushButton::clicked, &box, [&help, topic] { help.showTopic(topic); });
}

void Prepare(QMessageBox& box, const Message& message) {
  box.setObjectName("MessageBox");
  box.setTextFormat(Qt::PlainText);
  box.setWindowTitle(message.title.isEmpty() ? ApplicationTitle() : message.title);
  box.setText(QString(message.text).replace("\r\n", "\n"));
  box.setIcon(IconOf(message.icon));
  const bool asks = message.buttons == Message::Buttons::yesNo;
  box.setStandardButtons(asks ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok);
  box.setEscapeButton(asks ? QMessageBox::No : QMessageBox::Ok);
  // Help stays usable beside a box that offers it.
  box.setWindowModality(message.helpTopic != kNoHelpTopic ? Qt::WindowModal : Qt::ApplicationModal);
  box.setWindowFlag(Qt::WindowStaysOnTopHint, message.systemModal);  // the modality resets it
}

}  // namespace

bool DesktopMessageBoxes::show(const Message& message, QWidget* owner) {
  // Its owner can go while it waits, and takes it along: then it is as good as closed.
  const QPointer<QMessageBox> box = new QMessageBox(owner);
  Prepare(*box, message);
  if (message.helpTopic != kNoHelpTopic) AddHelpButton(*box, help_, message.helpTopic);
  const int answer = box->exec();
  delete box;
  return message.buttons == Message::Buttons::ok || answer == QMessageBox::Yes;
}

int DesktopMessageBoxes::ask(const Question& question, QWidget* owner) {
  const QPointer<QMessageBox> box = new QMessageBox(owner);
  Prepare(*box, {.text = question.text, .icon = Message::Icon::question});
  box->setStandardButtons(QMessageBox::NoButton);
  const int last = static_cast<int>(question.answers.size()) - 1;
  QList<QAbstractButton*> buttons;
  for (const QString& answer : question.answers) {
    const auto role = buttons.size() == last ? QMessageBox::RejectRole : QMessageBox::ActionRole;
    buttons += box->addButton(answer, role);
  }
  box->setEscapeButton(buttons[last]);
  box->setDefaultButton(qobject_cast<QPushButton*>(buttons[last]));
  box->exec();
  const auto answer = box.isNull() ? -1 : buttons.indexOf(box->clickedButton());
  delete box;
  return answer < 0 ? last : static_cast<int>(answer);
}

}  // namespace korvane
