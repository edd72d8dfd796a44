// SPDX-License-Identifier: GPL-3.0-or-later
#include "compare/SequenceDifference.h"

#include <algorithm>
#include <dtl/dtl.hpp>
#include <unordered_map>
#include <utility>

namespace korvane {

namespace {

using Sequence = std::span<const std::uint32_t>;
using Pair = std::pair<std::size_t, std::size_t>;

// The library compares what is small between the anchors: its time and memory are those of this product at
// most, for all parts together a multiple of the sequences' size.
constexpr std::size_t kSmallProduct = 500'000;
constexpr int kDeepestAnchors = 24;

// Where an element stands in the two sequences.
struct Occurrences {
  std::vector<std::size_t> former;
  std::vector<std::size_t> present;
};

// The longest list of the pairs, which are sorted by their first, in which the second ones rise too.
std::vector<Pair> LongestRising(const std::vector<Pair>& pairs) {
  std::vector<std::size_t> tails;  // index of the last pair of the best list of each length
  std::vector<std::size_t> before(pairs.size());
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    const auto place =
        std::lower_bound(tails.begin(), tails.end(), pairs[i].second,
                         [&](std::size_t tail, std::size_t second) { return pairs[tail].second < second; });
    before[i] = place == tails.begin() ? i : *(place - 1);
    if (place == tails.end()) {
      tails.push_back(i);
    } else {
      *place = i;
    }
  }
  std::vector<Pair> rising(tails.size());
  std::size_t at = tails.empty() ? 0 : tails.back();
  for (std::size_t i = rising.size(); i-- > 0; at = before[at]) rising[i] = pairs[at];
  return rising;
}

class Comparing {
 public:
  Comparing(Sequence former, Sequence present) : former_(former), present_(present) {}

  std::vector<DifferenceRun> run() {
    compare({0, former_.size(), 0, present_.size()}, kDeepestAnchors);
    return std::move(runs_);
  }

 private:
  struct Part {
    std::size_t oldBegin, oldEnd, newBegin, newEnd;
    std::size_t oldCount() const { return oldEnd - oldBegin; }
    std::size_t newCount() const { return newEnd - newBegin; }
  };

  void compare(Part part, int depth) {
    while (part.oldCount() > 0 && part.newCount() > 0 && former_[part.oldBegin] == present_[part.newBegin])
      add(true, part.oldBegin++, 1, part.newBegin++, 1);
    std::size_t tail = 0;
    while (part.oldCount() > 0 && part.newCount() > 0 &&
           former_[part.oldEnd - 1] == present_[part.newEnd - 1]) {
      --part.oldEnd;
      --part.newEnd;
      ++tail;
    }
    compareMiddle(part, depth);
    if (tail > 0) add(true, part.oldEnd, tail, part.newEnd, tail);
  }

  void compareMiddle(const Part& part, int depth) {
    if (part.oldCount() == 0 || part.newCount() == 0) {
      addOther(part);
    } else if ((part.oldCount() + 1) * (part.newCount() + 1) <= kSmallProduct) {
      compareSmall(part);
    } else if (depth == 0 || !compareBetween(anchors(part, true), part, depth)) {
      if (depth == 0 || !compareBetween(anchors(part, false), part, depth)) addOther(part);
    }
  }

  // Elements that occur once in both parts; or all that occur in both, the n-th with the n-th.
  std::vector<Pair> anchors(const Part& part, bool once) const {
    std::unordered_map<std::uint32_t, Occurrences> places;
    for (std::size_t i = part.oldBegin; i < part.oldEnd; ++i) places[former_[i]].former.push_back(i);
    for (std::size_t i = part.newBegin; i < part.newEnd; ++i) {
      const auto place = places.find(present_[i]);
      if (place != places.end()) place->second.present.push_back(i);
    }
    std::vector<Pair> pairs;
    for (const auto& [element, each] : places) {
      const std::size_t count = std::min(each.former.size(), each.present.size());
      if (once && std::max(each.former.size(), each.present.size()) > 1) continue;
      for (std::size_t i = 0; i < count; ++i) pairs.emplace_back(each.former[i], each.present[i]);
    }
    std::sort(pairs.begin(), pairs.end());
    return LongestRising(pairs);
  }

  bool compareBetween(const std::vector<Pair>& anchors, const Part& part, int depth) {
    Part rest = part;
    for (const auto& [former, present] : anchors) {
      compare({rest.oldBegin, former, rest.newBegin, present}, depth - 1);
      add(true, former, 1, present, 1);
      rest.oldBegin = former + 1;
      rest.newBegin = present + 1;
    }
    if (!anchors.empty()) compare(rest, depth - 1);
    return !anchors.empty();
  }

  void compareSmall(const Part& part) {
    using Elements = std::vector<std::uint32_t>;
    const auto cut = [](Sequence from, std::size_t begin, std::size_t count) {
      const Sequence elements = from.subspan(begin, count);
      return Elements(elements.begin(), elements.end());
    };
    dtl::Diff<std::uint32_t, Elements> difference(cut(former_, part.oldBegin, part.oldCount()),
                                                  cut(present_, part.newBegin, part.newCount()));
    difference.compose();
    std::size_t oldAt = part.oldBegin;
    std::size_t newAt = part.newBegin;
    for (const auto& [element, step] : difference.getSes().getSequence()) {
      const std::size_t oldCount = step.type == dtl::SES_ADD ? 0 : 1;
      const std::size_t newCount = step.type == dtl::SES_DELETE ? 0 : 1;
      add(step.type == dtl::SES_COMMON, oldAt, oldCount, newAt, newCount);
      oldAt += oldCount;
      newAt += newCount;
    }
  }

  void addOther(const Part& part) {
    if (part.oldCount() + part.newCount() > 0)
      add(false, part.oldBegin, part.oldCount(), part.newBegin, part.newCount());
  }

  void add(bool equal, std::size_t oldBegin, std::size_t oldCount, std::size_t newBegin,
           std::size_t newCount) {
    if (runs_.empty() || runs_.back().equal != equal) runs_.push_back({equal, oldBegin, 0, newBegin, 0});
    runs_.back().oldCount += oldCount;
    runs_.back().newCount += newCount;
  }

  Sequence former_;
  Sequence present_;
  std::vector<DifferenceRun> runs_;
};

}  // namespace

std::vector<DifferenceRun> CompareSequences(Sequence former, Sequence present) {
  return Comparing(former, present).run();
}

}  // namespace korvane
