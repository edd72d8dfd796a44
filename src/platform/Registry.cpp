// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/Registry.h"

#ifdef Q_OS_WIN

#include <qt_windows.h>

#include <array>
#include <cstring>

namespace korvane {

namespace {

constexpr REGSAM kAllAccess = 0x2003F;
constexpr std::size_t kMostCharacters = 1024;

HKEY HandleOf(Registry::Root root) {
  switch (root) {
    case Registry::Root::classesRoot:
      return HKEY_CLASSES_ROOT;
    case Registry::Root::currentUser:
      return HKEY_CURRENT_USER;
    case Registry::Root::localMachine:
      return HKEY_LOCAL_MACHINE;
    case Registry::Root::users:
      return HKEY_USERS;
  }
  return nullptr;
}

const wchar_t* Wide(const QString& text) {
  return reinterpret_cast<const wchar_t*>(text.utf16());
}

std::optional<RegistryValue> ReadValue(HKEY key, const QString& name) {
  std::array<wchar_t, kMostCharacters> buffer{};
  DWORD type = REG_NONE;
  DWORD bytes = sizeof buffer;
  const LSTATUS status =
      RegQueryValueExW(key, Wide(name), nullptr, &type, reinterpret_cast<BYTE*>(buffer.data()), &bytes);
  if (status != ERROR_SUCCESS) return std::nullopt;
  if (type == REG_DWORD && bytes == sizeof(quint32)) {
    quint32 number = 0;
    std::memcpy(&number, buffer.data(), sizeof number);
    return number;
  }
  if (type != REG_SZ && type != REG_EXPAND_SZ) return std::nullopt;
  return QString::fromWCharArray(buffer.data(), static_cast<qsizetype>(bytes / sizeof(wchar_t)));
}

class WindowsRegistry : public Registry {
 public:
  std::optional<RegistryValue> read(Root root, const QString& key, const QString& name) const override {
    HKEY handle = nullptr;
    if (RegOpenKeyExW(HandleOf(root), Wide(key), 0, kAllAccess, &handle) != ERROR_SUCCESS) {
      return std::nullopt;
    }
    std::optional<RegistryValue> value = ReadValue(handle, name);
    RegCloseKey(handle);
    return value;
  }
};

}  // namespace

std::unique_ptr<Registry> SystemRegistry() {
  return std::make_unique<WindowsRegistry>();
}

}  // namespace korvane

#else

namespace korvane {

namespace {

class EmptyRegistry : public Registry {
 public:
  std::optional<RegistryValue> read(Root, const QString&, const QString&) const override {
    return std::nullopt;
  }
};

}  // namespace

std::unique_ptr<Registry> SystemRegistry() {
  return std::make_unique<EmptyRegistry>();
}

}  // namespace korvane

#endif
