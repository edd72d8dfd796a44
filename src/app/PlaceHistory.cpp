// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/PlaceHistory.h"

#include <cstdlib>

namespace korvane {

namespace {

constexpr std::size_t kMost = 100;
constexpr int kNear = 10;  // lines

bool IsNear(const ItemPlace& a, const ItemPlace& b, int lines) {
  const auto same = [](const QString& one, const QString& other) {
    return one.compare(other, Qt::CaseInsensitive) == 0;
  };
  if (a.kind != b.kind || !same(a.place.path, b.place.path)) return false;
  return a.kind == kNoKind ? std::abs(a.place.line - b.place.line) <= lines : same(a.name, b.name);
}

}  // namespace

void PlaceHistory::add(const ItemPlace& item) {
  places_.resize(next_);
  if (!places_.empty() && IsNear(places_.back(), item, 0)) return;
  if (places_.size() == kMost) places_.erase(places_.begin());
  places_.push_back(item);
  next_ = places_.size();
}

void PlaceHistory::leave(const Here& here) {
  if (here && (next_ == 0 || !IsNear(places_[next_ - 1], *here, kNear))) add(*here);
}

void PlaceHistory::visit(const ItemPlace& item, const Here& here) {
  leave(here);
  add(item);
}

std::optional<ItemPlace> PlaceHistory::back(const Here& here) {
  if (next_ == places_.size()) leave(here);
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
