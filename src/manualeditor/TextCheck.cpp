// SPDX-License-Identifier: GPL-3.0-or-later
#include "manualeditor/TextCheck.h"

#include <algorithm>
#include <utility>

#include "platform/FileText.h"

namespace korvane {

namespace {

// Of a text that is none of the game's all the rest would be marked too, and the window held up by it.
constexpr std::size_t kMostFindings = 5000;

// Saving gives every line the end that the game's files have.
RuleSet RulesWhileTyping() {
  RuleSet rules = RuleSet::usual();
  rules.remove(RuleId::unixLines);
  return rules;
}

// Turns lines and columns into offsets of a UTF-8 text, one place after the other.
class Offsets {
 public:
  explicit Offsets(std::string_view utf8) : utf8_(utf8) {}

  // Lines never go back.
  TextSpan spanOf(const Finding& finding) {
    for (; line_ < finding.line; ++line_) start_ = behindLine();
    const std::size_t from = advanced(start_, finding.column - 1);
    return {static_cast<qsizetype>(from), static_cast<qsizetype>(advanced(from, finding.length))};
  }

 private:
  std::size_t behindLine() const {
    const std::size_t end = std::min(utf8_.find_first_of("\r\n", start_), utf8_.size());
    return std::min(end + (utf8_.substr(end, 2) == "\r\n" ? 2 : 1), utf8_.size());
  }

  std::size_t advanced(std::size_t from, int characters) const {
    constexpr auto kContinues = [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80; };
    for (; characters > 0 && from < utf8_.size(); --characters) {
      do {
        ++from;
      } while (from < utf8_.size() && kContinues(utf8_[from]));
    }
    return from;
  }

  std::string_view utf8_;
  int line_ = 1;
  std::size_t start_ = 0;
};

}  // namespace

TextCheck::~TextCheck() = default;

void TextCheck::start(CataloguePtr names, const QString& path, std::string utf8) {
  waiting_ = Text{std::move(names), path.toStdString(), std::move(utf8)};
  worker_.request_stop();
  startWaiting();
}

void TextCheck::cancel() {
  waiting_.reset();
  worker_.request_stop();
}

// The worker has its own hold on all that it uses, and what it hands over never changes.
void TextCheck::startWaiting() {
  if (!waiting_ || worker_.joinable()) return;
  worker_ = std::jthread(
      [this, text = *std::exchange(waiting_, std::nullopt), checker = checker_](const std::stop_token& stop) {
        const auto outcome = std::make_shared<const Outcome>(check(text, checker, stop));
        QMetaObject::invokeMethod(
            this, [this, outcome] { take(*outcome); }, Qt::QueuedConnection);
      });
}

TextCheck::Outcome TextCheck::check(const Text& text, CheckerPtr checker, const std::stop_token& stop) {
  if (checker == nullptr || &checker->catalogue() != text.names.get())
    checker = std::make_shared<const Checker>(text.names, RulesWhileTyping());
  Outcome outcome{std::move(checker), {}, false};
  auto findings = outcome.checker->checkText(text.path, LegibleBytesOfUtf8(text.utf8), stop);
  outcome.stopped = !findings;
  if (!findings) return outcome;
  if (findings->size() > kMostFindings) findings->resize(kMostFindings);
  Offsets offsets(text.utf8);
  for (Finding& finding : *findings) {
    const TextSpan span = offsets.spanOf(finding);
    outcome.findings.push_back({std::move(finding), span});
  }
  return outcome;
}

void TextCheck::take(const Outcome& outcome) {
  const bool stopped = outcome.stopped || worker_.get_stop_token().stop_requested();
  worker_.join();
  worker_ = {};
  checker_ = outcome.checker;
  if (!stopped) Q_EMIT found(outcome.findings);
  startWaiting();
}

}  // namespace korvane
