// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <utility>
#include <vector>

#include "platform/DesktopShell.h"
#include "platform/EventYield.h"
#include "platform/HelpViewer.h"
#include "platform/MessageBoxes.h"
#include "platform/Programs.h"

namespace korvane {

// Answers in the user's place and remembers what was said.
class FakeMessageBoxes : public MessageBoxes {
 public:
  bool show(const Message& message, QWidget*) override {
    shown.push_back(message);
    return answer;
  }
  int ask(const Question& question, QWidget*) override {
    asked.push_back(question);
    const auto found = question.answers.indexOf(answers.isEmpty() ? QString() : answers.takeFirst());
    return static_cast<int>(found < 0 ? question.answers.size() - 1 : found);
  }
  std::vector<Message> shown;
  std::vector<Question> asked;
  bool answer = true;
  QStringList answers;  // to the next questions; without them the last answer is given
};

class FakeShell : public DesktopShell {
 public:
  void RunFile(const QString& filename, const QString& dir) override { runs.emplace_back(filename, dir); }
  std::vector<std::pair<QString, QString>> runs;
};

class FakeProcessEnd : public ProcessEnd {
 public:
  void end() override { ++ends; }
  bool startAnew(Rights rights) override {
    ++(rights == Rights::same ? starts : startsAsAdministrator);
    return canStart;
  }
  bool needsAdministrator(const QString&) const override { return refused; }
  int ends = 0;
  int starts = 0;
  int startsAsAdministrator = 0;
  bool refused = false;  // every file, to a user who is no administrator
  bool canStart = true;
};

class FakeHelpViewer : public HelpViewer {
 public:
  void showContents() override { topics.push_back(0); }
  void showTopic(int topic) override { topics.push_back(topic); }
  std::vector<int> topics;  // 0: the contents
};

// Runs a test's own step the next time that work lets events run; every 64 lines, however quick they are
// read.
class ScriptedYield : public EventYield {
 public:
  ScriptedYield() : EventYield(std::chrono::milliseconds(0)) {}
  std::function<void()> onTurn;

 protected:
  void runEvents() override {
    if (onTurn) std::exchange(onTurn, nullptr)();
    EventYield::runEvents();
  }
};

}  // namespace korvane
