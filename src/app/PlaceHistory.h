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
  using Here = std::optional<ItemPlace>;

  // An item stands for its own window when it has a kind, else for its place alone. `here` is where the user
  // is by now, who may have gone on by hand: more than a few lines away it is a place to come back to.
  void visit(const ItemPlace& item, const Here& here = {});
  std::optional<ItemPlace> back(const Here& here = {});
  std::optional<ItemPlace> forward();

 private:
  void leave(const Here& here);
  void add(const ItemPlace& item);

  std::vector<ItemPlace> places_;
  std::size_t next_ = 0;  // behind the place where the user is
};

}  // namespace korvane
