// SPDX-License-Identifier: GPL-3.0-or-later
#include "compare/Comparison.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <future>
#include <iterator>
#include <mutex>
#include <thread>
#include <utility>

#include "catalogue/FoldedText.h"
#include "compare/Pairing.h"
#include "compare/SourceItems.h"

namespace korvane {

namespace {

using ItemList = std::vector<const SourceItem*>;

// The progress of two readings at a time as that of one.
class SharedProgress {
 public:
  explicit SharedProgress(const TellProgress& tell) : tell_(tell) {}

  TellProgress of(std::size_t reading) {
    if (!tell_) return {};
    return [this, reading](std::size_t done, std::size_t all) {
      const std::lock_guard lock(mutex_);
      done_[reading] = done;
      all_[reading] = all;
      tell_(done_[0] + done_[1], all_[0] + all_[1]);
    };
  }

 private:
  const TellProgress& tell_;
  std::mutex mutex_;
  std::array<std::size_t, 2> done_{};
  std::array<std::size_t, 2> all_{};
};

bool SameItem(const SourceItem& a, const SourceItem& b) {
  return a.kind == b.kind && EqualFolded(a.name, b.name);
}

bool BeforeItem(const SourceItem& a, const SourceItem& b) {
  return a.kind != b.kind ? a.kind < b.kind : LessFolded(a.name, b.name);
}

ItemPosition PositionOf(const SourceItem& item) {
  return {item.file, item.line, item.lastLine};
}

class SourcesComparing {
 public:
  SourcesComparing(const SourceItems& former, const SourceItems& present, bool text,
                   const std::stop_token& stop)
      : former_(former), present_(present), text_(text), stop_(stop) {}

  std::optional<std::vector<ItemChange>> run() {
    findPairs();
    std::vector<std::optional<ItemChange>> compared(pairs_.size());
    std::atomic<std::size_t> next = 0;
    const auto work = [&] {
      for (std::size_t i = next++; i < pairs_.size() && !stop_.stop_requested(); i = next++)
        compared[i] = compare(pairs_[i].first, pairs_[i].second);
    };
    std::vector<std::future<void>> helpers;
    for (unsigned i = 1; i < std::thread::hardware_concurrency(); ++i)
      helpers.push_back(std::async(std::launch::async, work));
    work();
    for (std::future<void>& helper : helpers) helper.get();
    if (stop_.stop_requested()) return std::nullopt;
    std::vector<ItemChange> changes;
    for (std::optional<ItemChange>& each : compared) {
      if (each) changes.push_back(std::move(*each));
    }
    return changes;
  }

 private:
  using Place = std::vector<SourceItem>::const_iterator;

  // Both lists are sorted: the next item of either begins a group of the same kind and name.
  void findPairs() {
    auto before = former_.items.begin();
    auto now = present_.items.begin();
    while (before != former_.items.end() || now != present_.items.end()) {
      const bool isOld =
          now == present_.items.end() || (before != former_.items.end() && BeforeItem(*before, *now));
      const SourceItem& first = isOld ? *before : *now;
      ItemList formerGroup = takeGroup(first, before, former_.items.end());
      ItemList presentGroup = takeGroup(first, now, present_.items.end());
      pairGroup(formerGroup, presentGroup);
    }
  }

  static ItemList takeGroup(const SourceItem& first, Place& at, Place end) {
    ItemList group;
    for (; at != end && SameItem(first, *at); ++at) group.push_back(&*at);
    return group;
  }

  void pairGroup(ItemList& former, ItemList& present) {
    Pairs<SourceItem> pairs;
    if (former.size() == 1 && present.size() == 1) {
      if (former[0]->text == present[0]->text) return;
    } else {
      PairBy(
          former, present, [](const SourceItem& item) { return std::string(item.text); }, pairs);
      pairs.clear();  // those are equal
      PairBy(
          former, present, [](const SourceItem& item) { return ComparedPath(item.path); }, pairs);
    }
    PairRest(former, present, pairs);
    std::ranges::move(pairs, std::back_inserter(pairs_));
  }

  // Nothing when they say the same.
  std::optional<ItemChange> compare(const SourceItem* before, const SourceItem* now) const {
    const SourceItem& shown = now != nullptr ? *now : *before;
    ItemChange change;
    change.kind = shown.kind;
    change.name = shown.name;
    if (before != nullptr) change.former = PositionOf(*before);
    if (now != nullptr) change.present = PositionOf(*now);
    change.state = before == nullptr ? ItemState::added
                   : now == nullptr  ? ItemState::removed
                                     : ItemState::changed;
    const ComparedBlock block = ReadBlock(shown.text, shown.line);
    if (before != nullptr && now != nullptr)
      change.keys = CompareBlocks(ReadBlock(before->text, before->line), block);
    if (change.state == ItemState::changed && change.keys.empty() && !text_) return std::nullopt;
    change.side = ValueOf(block, "Side").value_or("");
    return change;
  }

  const SourceItems& former_;
  const SourceItems& present_;
  bool text_;
  const std::stop_token& stop_;
  Pairs<SourceItem> pairs_;
};

std::vector<SourceFile> TakeFiles(SourceItems& items) {
  std::vector<SourceFile> files;
  for (SourceText& each : items.files) files.push_back(std::move(each.file));
  return files;
}

}  // namespace

std::string_view KindText(KindId kind) {
  return kind == kNoKind ? std::string_view() : GameStructure::get().kinds()[kind].name;
}

std::optional<Comparison> CompareSources(const DataSource& original, const DataSource& modification,
                                         const ComparisonWish& wish, const std::stop_token& stop) {
  SharedProgress progress(wish.progress);
  auto reading = std::async(std::launch::async, ReadItems, original, wish.kinds, stop, progress.of(0));
  std::optional<SourceItems> present = ReadItems(modification, wish.kinds, stop, progress.of(1));
  std::optional<SourceItems> former = reading.get();
  if (!former || !present) return std::nullopt;
  Comparison comparison;
  auto items = SourcesComparing(*former, *present, wish.text, stop).run();
  if (!items) return std::nullopt;
  comparison.items = std::move(*items);
  comparison.skipped = std::move(former->skipped);
  std::ranges::move(present->skipped, std::back_inserter(comparison.skipped));
  comparison.formerFiles = TakeFiles(*former);
  comparison.presentFiles = TakeFiles(*present);
  return comparison;
}

}  // namespace korvane
