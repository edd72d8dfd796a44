// SPDX-License-Identifier: GPL-3.0-or-later
#include "check/Checker.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <mutex>
#include <numeric>
#include <thread>

#include "catalogue/StructureReader.h"
#include "check/FileCheck.h"
#include "check/FolderCheck.h"
#include "files/NativePath.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

// Collects the sides of player templates.
class SideCollector : public StructureSink {
 public:
  explicit SideCollector(std::vector<std::string>& sides) : sides_(sides) {}

  void keyFound(const KeyLine& key) override {
    if (key.block == nullptr || key.facts == nullptr || key.facts->key != "Side") return;
    if (GameStructure::get().type(key.block->type).keyword != "PlayerTemplate") return;
    const std::string_view side = key.words().next().text;
    if (!side.empty() && std::ranges::find(sides_, side) == sides_.end()) sides_.emplace_back(side);
  }

 private:
  std::vector<std::string>& sides_;
};

bool HasKind(const CatalogueFile& file, KindId kind) {
  return std::ranges::any_of(file.definitions(), [kind](const auto& each) { return each.kind == kind; });
}

std::vector<std::string> SidesOf(const Catalogue& catalogue) {
  const KindId players = GameStructure::get().kind("PlayerTemplate");
  std::vector<std::string> sides;
  SideCollector collector(sides);
  SourceReader reader;
  for (const auto& file : catalogue.files())
    if (HasKind(*file, players) && reader.read(file->source()).empty())
      ReadStructure(reader.bytes(), collector);
  return sides;
}

bool IsArchive(const std::string& path) {
  return ToLowerAscii(path).ends_with(".big") && !FolderExists(ProgramPath(path));
}

std::uint32_t LinesOf(const CatalogueFile& file) {
  return file.blocks().empty() ? 0 : file.blocks().back().lastLine;
}

// The longest first, so that at the end no thread waits long for another one.
std::vector<std::size_t> OrderOf(const std::vector<const CatalogueFile*>& files) {
  std::vector<std::size_t> order(files.size());
  std::iota(order.begin(), order.end(), std::size_t{0});
  std::ranges::stable_sort(order, std::ranges::greater(),
                           [&files](std::size_t i) { return LinesOf(*files[i]); });
  return order;
}

// Hands out the files to the threads, and takes their findings.
class Work {
 public:
  Work(const std::vector<const CatalogueFile*>& files, const CheckContext& context,
       const CheckOptions& options)
      : files_(files), order_(OrderOf(files)), context_(context), options_(options), found_(files.size()) {}

  std::vector<Findings> run() {
    const unsigned wanted = options_.jobs == 0 ? std::thread::hardware_concurrency() : options_.jobs;
    const std::size_t jobs = std::clamp<std::size_t>(wanted, 1, std::max<std::size_t>(files_.size(), 1));
    std::vector<std::jthread> threads;
    for (std::size_t i = 1; i < jobs; ++i) threads.emplace_back([this] { takeFiles(); });
    takeFiles();
    threads.clear();
    return std::move(found_);
  }

 private:
  void takeFiles() {
    SourceReader reader;
    for (std::size_t at = next_++; at < order_.size() && !context_.stop.stop_requested(); at = next_++) {
      const std::size_t i = order_[at];
      if (reader.read(files_[i]->source()).empty())
        found_[i] = FileCheck({*files_[i], reader.bytes()}, context_).run().value_or(Findings());
      tellProgress();
    }
  }

  void tellProgress() {
    if (!options_.progress) return;
    const std::scoped_lock lock(progress_);
    options_.progress(++done_, files_.size());
  }

  const std::vector<const CatalogueFile*>& files_;
  const std::vector<std::size_t> order_;
  const CheckContext& context_;
  const CheckOptions& options_;
  std::vector<Findings> found_;  // of each file
  std::atomic<std::size_t> next_ = 0;
  std::mutex progress_;
  std::size_t done_ = 0;
};

Findings Joined(std::vector<Findings> ofFiles) {
  Findings all;
  for (Findings& findings : ofFiles) std::ranges::move(findings, std::back_inserter(all));
  return all;
}

}  // namespace

Checker::Checker(CataloguePtr catalogue, RuleSet rules)
    : catalogue_(std::move(catalogue)), rules_(rules), functions_(rules_), names_(*catalogue_) {
  if (rules_.has(RuleId::sideTypo)) sides_ = SidesOf(*catalogue_);
  const bool isArchive = IsArchive(catalogue_->sources().gameFolder);
  for (const auto& file : catalogue_->files())
    if (file->source().own && file->source().archived == isArchive) files_.push_back(file.get());
}

CheckContext Checker::context(const DefinedNames& names, const std::stop_token& stop) const {
  return {.rules = rules_, .functions = functions_, .names = names, .sides = sides_, .stop = stop};
}

std::optional<Findings> Checker::check(const CheckOptions& options, const std::stop_token& stop) const {
  const CheckContext shared = context(names_, stop);
  std::vector<Findings> found = Work(files_, shared, options).run();
  if (!functions_.of<FolderFunction>().empty()) FolderCheck(*catalogue_, files_, shared).run(found);
  if (stop.stop_requested()) return std::nullopt;
  return Joined(std::move(found));
}

std::optional<Findings> Checker::checkText(std::string_view path, std::string_view text,
                                           const std::stop_token& stop) const {
  const CatalogueFile* known = catalogue_->file(path);
  SourceFile source{.path = known == nullptr ? std::string(path) : known->source().path,
                    .container = catalogue_->sources().gameFolder};
  std::ranges::replace(source.path, '/', '\\');
  const auto file = CatalogueFile::read(std::move(source), text, stop);
  if (file == nullptr) return std::nullopt;
  const DefinedNames names(names_, *catalogue_, *file);
  return FileCheck({*file, text}, context(names, stop)).run();
}

}  // namespace korvane
