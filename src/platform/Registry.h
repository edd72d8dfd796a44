// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <memory>
#include <optional>
#include <variant>

namespace korvane {

// A value as the registry reports it: a text up to its reported length, any terminating zero included, or a
// 32-bit number.
using RegistryValue = std::variant<QString, quint32>;

// The registry of Windows, for reading.
class Registry {
 public:
  enum class Root { classesRoot, currentUser, localMachine, users };

  virtual ~Registry() = default;

  // The value `name` of the key below the root. Nothing when the key cannot be opened for all access, when it
  // has no such value, or when the value is longer than 1024 characters or of another kind. All access is
  // asked for so that a key which the user may not change counts as absent.
  virtual std::optional<RegistryValue> read(Root root, const QString& key, const QString& name) const = 0;
};

// The registry of this machine; an empty one where the system has none.
std::unique_ptr<Registry> SystemRegistry();

}  // namespace korvane
