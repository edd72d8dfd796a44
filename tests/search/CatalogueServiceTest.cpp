// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include <QTest>

#include "app/CatalogueService.h"
#include "support/TestDesk.h"

namespace korvane {
namespace {

TEST(CatalogueServiceTest, AWishDuringAReadingIsReadAfterIt) {
  const TestDesk desk;
  desk.game.ini("Weapon.ini", "Weapon Gun\nEnd\n");
  CatalogueService names(desk.folders);
  int changes = 0;
  QObject::connect(&names, &CatalogueService::changed, &names, [&] { ++changes; });
  names.refresh();
  ASSERT_TRUE(names.isReading());
  names.refresh();
  names.filesChanged();
  EXPECT_TRUE(QTest::qWaitFor([&] { return changes == 2; }));
  EXPECT_FALSE(names.isReading());
}

}  // namespace
}  // namespace korvane
