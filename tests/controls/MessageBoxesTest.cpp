// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QTimer>
#include <QWidget>

#include "platform/DesktopMessageBoxes.h"
#include "support/Fakes.h"

namespace korvane {
namespace {

TEST(DesktopMessageBoxes, AnOwnerThatGoesTakesTheBoxAlongAsIfItWereClosed) {
  using Buttons = Message::Buttons;
  FakeHelpViewer help;
  for (const auto& [buttons, answer] : {std::pair{Buttons::ok, true}, {Buttons::yesNo, false}}) {
    auto* owner = new QWidget;
    QTimer::singleShot(0, [owner] { delete owner; });
    EXPECT_EQ(DesktopMessageBoxes(help).show({.text = "?", .buttons = buttons}, owner), answer);
  }
}

}  // namespace
}  // namespace korvane
