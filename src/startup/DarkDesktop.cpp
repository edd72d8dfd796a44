// SPDX-License-Identifier: GPL-3.0-or-later
#include "startup/DarkDesktop.h"

#ifdef _WIN32

#include <QApplication>
#include <qt_windows.h>

namespace korvane {

namespace {

constexpr const wchar_t* kColours = L"Software\\Microsoft\\Windows\\CurrentVersion\\Themes\\Personalize";

bool HasHighContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, contrast.cbSize, &contrast, 0) != 0 &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

bool IsDark() {
  DWORD isLight = 1;
  DWORD size = sizeof isLight;
  const LSTATUS status = RegGetValueW(HKEY_CURRENT_USER, kColours, L"AppsUseLightTheme", RRF_RT_REG_DWORD,
                                      nullptr, &isLight, &size);
  return status == ERROR_SUCCESS && isLight == 0 && !HasHighContrast();
}

}  // namespace

// Left to itself, this Qt darkens the frames alone: the system's own style knows no dark controls.
void FollowDarkDesktop() {
  const QByteArray platform = qgetenv("QT_QPA_PLATFORM");
  if (!IsDark() || !(platform.isEmpty() || platform.startsWith("windows"))) return;
  qputenv("QT_QPA_PLATFORM", "windows:darkmode=2");
  QApplication::setStyle("Fusion");
}

}  // namespace korvane

#else

namespace korvane {

void FollowDarkDesktop() {}

}  // namespace korvane

#endif
