// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/NameNotices.h"

#include <QSet>

#include <algorithm>

#include "app/EditorLauncher.h"
#include "app/ManualEditRequest.h"
#include "app/Places.h"
#include "platform/TextEncoding.h"

namespace korvane {

namespace {

constexpr std::size_t kMostPlaces = 5;

struct NamedKind {
  const char* kind;
  const char* noun;
};
constexpr NamedKind kNamedKinds[] = {{"Weapon", "weapon"}, {"Armor", "armour"}, {"Locomotor", "locomotor"}};

// Puts the sentences about one object together.
class NameSentences {
 public:
  NameSentences(const Catalogue& names, const LookedFor& object, const ShownBlock& block,
                EditorLauncher& launcher)
      : names_(names), object_(object), block_(block), launcher_(launcher) {
    const std::string& folder = names.sources().gameFolder;
    const std::string path = object.file.toStdString();
    if (path.starts_with(folder)) file_ = names.file(std::string_view(path).substr(folder.size() + 1));
  }

  std::vector<Notice> all() {
    if (file_ == nullptr) return {};
    sayOtherFiles();
    if (block_.line != 0) sayUnknownNames();
    return std::move(notices_);
  }

 private:
  void sayOtherFiles();
  void sayUnknownNames();
  void sayUnknown(const NamedKind& kind, std::span<const CatalogueFile::Use> uses);
  bool definesAny(SpaceId space) const;
  void addPlace(Notice& notice, const FilePlace& place);

  const Catalogue& names_;
  const LookedFor& object_;
  const ShownBlock& block_;
  EditorLauncher& launcher_;
  const CatalogueFile* file_ = nullptr;
  std::vector<Notice> notices_;
};

void NameSentences::addPlace(Notice& notice, const FilePlace& place) {
  ManualEditRequest request;
  request.ManualEditFile = QString::fromStdString(names_.sources().gameFolder) + u'\\' + place.path;
  request.place.line = place.line;
  request.archive = place.archive;
  notice.link(ShownPlace(place),
              [&launcher = launcher_, request = std::move(request)] { launcher.showManualEditor(request); });
}

void NameSentences::sayOtherFiles() {
  auto others = names_.definitions(GameStructure::get().space("Object"), ToBytes(object_.name));
  // Those of further data are what a modification replaces.
  std::erase_if(others, [this](const FoundDefinition& found) {
    return found.file == file_ || !found.file->source().own;
  });
  if (others.empty()) return;
  Notice notice(object_.name + " is also defined in ");
  for (std::size_t i = 0; i < std::min(others.size(), kMostPlaces); ++i) {
    if (i > 0) notice.say(i + 1 == others.size() ? " and in " : ", ");
    addPlace(notice, ItemOf(others[i]).place);
  }
  if (others.size() > kMostPlaces)
    notice.say(QStringLiteral(" and %1 more places").arg(others.size() - kMostPlaces));
  notices_.push_back(notice.say("."));
}

void NameSentences::sayUnknownNames() {
  const auto line = static_cast<std::uint32_t>(block_.line);
  const std::uint32_t block = file_->blockAt(line);
  // The file has changed since the catalogue was made.
  if (block == CatalogueFile::kNone || file_->blocks()[block].firstLine != line) return;
  for (const NamedKind& kind : kNamedKinds) sayUnknown(kind, file_->usesIn(block));
}

void NameSentences::sayUnknown(const NamedKind& kind, std::span<const CatalogueFile::Use> uses) {
  const GameStructure& structure = GameStructure::get();
  const SpaceId space = structure.space(kind.kind);
  QSet<QString> said;
  for (const CatalogueFile::Use& use : uses) {
    const std::string_view name = file_->name(use.name);
    if (file_->space(use.name) != space || structure.isSpecial(name, space)) continue;
    if (names_.defines(space, name) || !definesAny(space)) continue;
    const QString shown = FromBytes(name);
    if (said.contains(shown.toLower())) continue;
    said += shown.toLower();
    Notice notice(QStringLiteral("The %1 '%2', named in ").arg(QString(kind.noun), shown));
    AddLine(notice, QStringLiteral("line %1").arg(use.line), object_.file, use.line, launcher_)
        .say(", is defined nowhere.");
    notices_.push_back(notice);
  }
}

bool NameSentences::definesAny(SpaceId space) const {
  const auto kinds = GameStructure::get().kinds();
  return std::ranges::any_of(names_.files(), [&](const auto& file) {
    return std::ranges::any_of(file->definitions(), [&](const CatalogueFile::Definition& definition) {
      return kinds[definition.kind].space == space;
    });
  });
}

}  // namespace

std::vector<Notice> NameNotices(const Catalogue& names, const LookedFor& object, const ShownBlock& block,
                                EditorLauncher& launcher) {
  return NameSentences(names, object, block, launcher).all();
}

}  // namespace korvane
