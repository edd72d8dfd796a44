// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PlaceHistory.h"

namespace korvane {

namespace {

constexpr std::size_t kMost = 100;

bool IsSame(const ItemPlace& a, const ItemPlace& b) {
  return a.kind == b.kind && a.place.path == b.place.path && a.place.line == b.place.line;
}

}  // namespace

void PlaceHistory::visit(const ItemPlace& item) {
  places_.resize(next_);
  if (!places_.empty() && IsSame(places_.back(), item)) return;
  if (places_.size() == kMost) places_.erase(places_.begin());
  places_.push_back(item);
  next_ = places_.size();
}

std::optional<ItemPlace> PlaceHistory::back() {
  if (next_ < 2) return std::nullopt;
  --next_;
  return places_[next_ - 1];
}

std::optional<ItemPlace> PlaceHistory::forward() {
  if (next_ >= places_.size()) return std::nullopt;
  ++next_;
  return places_[next_ - 1];
}

}  // namespace korvane
