// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

#include <string_view>

class QWidget;

namespace korvane {

// The title of a message that has none of its own, and of the main window.
inline constexpr std::u16string_view kApplicationTitle = u"Command And Conquer Generals Korvane";
inline QString ApplicationTitle() {
  return QString::fromUtf16(kApplicationTitle.data());
}

inline constexpr int kNoHelpTopic = 0;

struct Message {
  enum class Icon { none, information, question, critical };
  enum class Buttons { ok, yesNo };

  QString text;     // plain text; line ends as CR LF
  QString title{};  // empty: the application title
  Icon icon = Icon::none;
  Buttons buttons = Buttons::ok;
  int helpTopic = kNoHelpTopic;  // a topic of the application's help file; adds a Help button
  bool systemModal = false;      // stays above every window
};

// A question with answers of its own, the captions of its buttons in their order. The last one changes
// nothing; it is chosen by default and by closing the box.
struct Question {
  QString text;  // plain text; line ends as CR LF
  QStringList answers;
};

// Asks and tells the user. An interface, so that tests answer in the user's place.
class MessageBoxes {
 public:
  virtual ~MessageBoxes() = default;

  // Shows the message and waits for the answer: true for OK and Yes, false for No. Closing the box stands for
  // No, or for OK where nothing is asked.
  virtual bool show(const Message& message, QWidget* owner) = 0;

  // Waits for the answer: its place among the question's answers, from 0.
  virtual int ask(const Question& question, QWidget* owner) = 0;
};

}  // namespace korvane
