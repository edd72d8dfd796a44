// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>

#include <optional>
#include <string>
#include <string_view>

#include "platform/FileText.h"

namespace korvane {

// A text that was not saved.
struct UnsavedText {
  QString path;         // the program's path of its file
  bool part = false;    // it is only a part of that file
  std::string utf8;     // the characters
  QString former = {};  // where its file's former version is kept (native path) while the file is overwritten
};

// What a journal on the disk begins with; the text's UTF-8 follows.
std::string HeadOfJournal(const UnsavedText& text);

// What a journal holds; nothing when it is none. A journal of an earlier release holds the file's bytes.
struct ReadJournal {
  QString path;
  bool part = false;
  QString former;
  KeepableText text;
};
std::optional<ReadJournal> TextOfJournal(std::string_view journal);

}  // namespace korvane
