// SPDX-License-Identifier: GPL-3.0-or-later
#include <gtest/gtest.h>

#include "app/PlaceHistory.h"

namespace korvane {
namespace {

ItemPlace Line(int line) {
  return {.place = {.path = "Data\\INI\\Weapon.ini", .line = line}};
}

ItemPlace Weapon(const QString& name, int line = 0) {
  return {GameStructure::get().kind("Weapon"), name, {.path = "Data\\INI\\Weapon.ini", .line = line}};
}

int LineOf(const std::optional<ItemPlace>& item) {
  return item ? item->place.line : 0;
}

TEST(PlaceHistoryTest, BackLeadsToWhereAJumpBeganAndForwardToItsEnd) {
  PlaceHistory history;
  history.visit(Line(500), Line(100));
  EXPECT_EQ(LineOf(history.back(Line(500))), 100);
  EXPECT_EQ(LineOf(history.back(Line(100))), 0);
  EXPECT_EQ(LineOf(history.forward()), 500);
  EXPECT_EQ(LineOf(history.forward()), 0);
}

TEST(PlaceHistoryTest, WhereTheUserWentByHandIsAPlaceUnlessItIsOnlyAFewLinesAway) {
  PlaceHistory history;
  history.visit(Line(500), Line(100));
  EXPECT_EQ(LineOf(history.back(Line(503))), 100);
  EXPECT_EQ(LineOf(history.forward()), 500);
  EXPECT_EQ(LineOf(history.back(Line(900))), 500);
  EXPECT_EQ(LineOf(history.forward()), 900);
}

TEST(PlaceHistoryTest, AJumpForgetsThePlacesAhead) {
  PlaceHistory history;
  history.visit(Line(500), Line(100));
  history.visit(Line(900), Line(500));
  history.back(Line(900));
  history.back(Line(500));
  history.visit(Line(300), Line(100));
  EXPECT_EQ(LineOf(history.forward()), 0);
  EXPECT_EQ(LineOf(history.back(Line(300))), 100);
}

TEST(PlaceHistoryTest, AnItemIsOnePlaceWhereverItsWindowFoundIt) {
  PlaceHistory history;
  history.visit(Weapon("Gun", 12), Weapon("Cannon"));
  EXPECT_EQ(history.back(Weapon("GUN"))->name, "Cannon");
  EXPECT_FALSE(history.back(Weapon("cannon")));
  EXPECT_EQ(history.forward()->name, "Gun");
}

}  // namespace
}  // namespace korvane
