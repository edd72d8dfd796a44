// SPDX-License-Identifier: GPL-3.0-or-later
#include "setup/ErrorReport.h"

#include <QStringList>

#include "platform/SupportAddress.h"
#include "stock/DatabaseError.h"

namespace korvane {

namespace {

constexpr int kDriverHelpTopic = 63;

QString TextOf(const QString& description, const QStringList& advice) {
  ErrorReport report;
  report.EAdd("A Error has been detected, ");
  report.EAdd("Error Name: " + description);
  report.EAdd({});
  for (const QString& line : advice) report.EAdd(line);
  report.EAdd(ApplicationTitle() + " will close when you click 'OK'");
  report.EFin();
  return report.text();
}

}  // namespace

void ErrorReport::EAdd(const QString& line) {
  text_ += line + "\r\n";
}

void ErrorReport::EFin() {
  text_.chop(2);
}

Message FailureMessage(const QString& description, int number) {
  if (number == static_cast<int>(DatabaseFailure::noDriver)) {
    return {.text = TextOf(description, {"Click 'Help' to get help on this error."}),
            .title = "Error",
            .icon = Message::Icon::critical,
            .helpTopic = kDriverHelpTopic,
            .systemModal = true};
  }
  return {.text = TextOf(description,
                         {"There is not any help on this error,",
                          "Send the 'Error Name' to " + SupportAddress() + " to get help on this error."}),
          .icon = Message::Icon::critical};
}

}  // namespace korvane
