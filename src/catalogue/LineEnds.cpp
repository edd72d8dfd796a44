// SPDX-License-Identifier: GPL-3.0-or-later
#include "catalogue/LineEnds.h"

#include <algorithm>

#include "files/FilePieces.h"
#include "ini/DataFiles.h"
#include "ini/IniText.h"

namespace korvane {

namespace {

// The piece is not empty.
LineEnds LineEndsOf(std::string_view piece, char before) {
  LineEnds ends;
  ends.hasOther = piece.find('\r') != std::string_view::npos;
  ends.lf = CountBehindFirst(piece, kIsLoneLf) + static_cast<std::size_t>(kIsLoneLf(before, piece.front()));
  return ends;
}

LineEnds LineEndsOf(FilePieces& file, const ProgramPath& path) {
  LineEnds all;
  if (!file.open(path)) return all;
  char before = '\0';
  while (!file.atEnd()) {
    const std::string_view piece = file.next(0);
    if (piece.empty()) continue;
    const LineEnds ends = LineEndsOf(piece, before);
    all.lf += ends.lf;
    all.hasOther = all.hasOther || ends.hasOther;
    before = piece.back();
  }
  file.close();
  return all;
}

}  // namespace

std::vector<UnixFile> DataFilesWithUnixLineEnds(std::string_view gameFolder) {
  std::vector<UnixFile> files;
  for (const DataFile& file : kDataFiles) {
    std::string path(file.folder.substr(kIniFolder.size()));
    files.push_back({path.append(file.name), {}});
  }
  return StillWithUnixLineEnds(gameFolder, files);
}

std::vector<UnixFile> StillWithUnixLineEnds(std::string_view gameFolder, const std::vector<UnixFile>& files) {
  std::vector<UnixFile> found;
  FilePieces pieces;
  for (const UnixFile& file : files) {
    const LineEnds ends = LineEndsOf(pieces, IniPath(gameFolder, file.path));
    if (ends.lf > 0) found.push_back({file.path, ends});
  }
  return found;
}

}  // namespace korvane
