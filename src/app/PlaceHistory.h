// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "app/Places.h"

namespace korvane {

// The places that the user has visited, across windows, as a browser keeps its pages.
class PlaceHistory {
 public:
  // An item's own window, when `item` has a kind; else its place alone.
  void visit(const ItemPlace& item);
  std::optional<ItemPlace> back();
  std::optional<ItemPlace> forward();

 private:
  std::vector<ItemPlace> places_;
  std::size_t next_ = 0;  // behind the place where the user is
};

}  // namespace korvane
