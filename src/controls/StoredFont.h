// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QFont>

namespace korvane {

class SettingsStore;

// The settings that hold one font, and what an absent one of them reads as.
struct FontSettings {
  const char* family;
  const char* size;  // in points
  const char* bold;
  const char* italic;
  const char* underline;
  const char* strikeOut;
  const char* absent;
};

inline constexpr FontSettings kTreeFont{"MenuiFont",      "MenuiFontSize",  "MenuiBold", "MenuiItalic",
                                        "MenuiUnderline", "MenuiStrikeout", "1"};
inline constexpr FontSettings kTextFont{"ManEditName",
                                        "ManEditSize",
                                        "ManEditBold",
                                        "ManEditItalic",
                                        "ManEditUnderline",
                                        "ManEditStrikethrough",
                                        ""};

// The font as it is stored. What is not stored, or cannot be used (a font that this machine does not have, a
// size that is no number or that nobody could read), stays as it is in `current`.
QFont StoredFont(const SettingsStore& store, const FontSettings& settings, QFont current);

void SaveFont(SettingsStore& store, const FontSettings& settings, const QFont& font);

// Whether any of the settings is stored.
bool AnyStored(const SettingsStore& store, const FontSettings& settings);

}  // namespace korvane
