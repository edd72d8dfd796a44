// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QTest>

#include "app/Worker.h"

namespace korvane {
namespace {

TEST(WorkerTest, NothingOfAJobThatWasStoppedOrReplacedIsDelivered) {
  Worker worker;
  QStringList delivered;
  const auto start = [&](const char* name) {
    worker.start([&delivered, name](const std::stop_token&, Worker::Teller&) -> Worker::Deliver {
      return [&delivered, name] { delivered += name; };
    });
  };
  const auto wait = [&] { return QTest::qWaitFor([&] { return !worker.isRunning(); }); };
  start("stopped");
  worker.stop();
  EXPECT_TRUE(wait());
  start("replaced");
  start("wanted");
  EXPECT_TRUE(wait());
  EXPECT_EQ(delivered, QStringList("wanted"));
}

}  // namespace
}  // namespace korvane
