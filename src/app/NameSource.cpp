// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/NameSource.h"

#include "catalogue/CatalogueFile.h"
#include "platform/TextEncoding.h"

namespace korvane {

NameHere NameInValue(std::string_view kind, const QString& key, const QString& value) {
  const std::string block = std::string(kind) + " x\n" + ToBytes(key + " = " + value) + "\nEnd\n";
  const auto read = CatalogueFile::read({}, block);
  if (read->uses().empty()) return {value.trimmed()};
  const CatalogueFile::NameId name = read->uses().front().name;
  return {FromBytes(read->name(name)), read->space(name)};
}

}  // namespace korvane
