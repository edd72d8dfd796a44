// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

#include <memory>
#include <optional>
#include <stop_token>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "check/Checker.h"
#include "manualeditor/TextSearch.h"

namespace korvane {

// A finding and where the control's UTF-8 text has it.
struct TextFinding {
  Finding finding;
  TextSpan span;
};

// Checks the text of a file while it is edited, in a worker.
class TextCheck : public QObject {
  Q_OBJECT

 public:
  TextCheck() = default;
  // Stops the worker and waits for it: at most the time of one text.
  ~TextCheck() override;

  // Of the texts that are handed over while the worker is at one only the last is checked, and only its
  // findings are told, and no more than some thousands. The path is below the game folder.
  void start(CataloguePtr names, const QString& path, std::string utf8);
  void cancel();

 Q_SIGNALS:
  void found(const std::vector<TextFinding>& findings);

 private:
  struct Text {
    CataloguePtr names;
    std::string path;
    std::string utf8;
  };
  using CheckerPtr = std::shared_ptr<const Checker>;
  struct Outcome {
    CheckerPtr checker;
    std::vector<TextFinding> findings;
    bool stopped = false;
  };

  void startWaiting();
  void take(const Outcome& outcome);
  static Outcome check(const Text& text, CheckerPtr checker, const std::stop_token& stop);

  CheckerPtr checker_;  // of the last check
  std::optional<Text> waiting_;
  std::jthread worker_;
};

}  // namespace korvane
