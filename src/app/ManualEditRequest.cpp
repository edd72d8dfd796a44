// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ManualEditRequest.h"

#include "app/Services.h"
#include "ini/DataFiles.h"

namespace korvane {

QString DataFilePath(const Folders& folders, DataFolder folder, const QString& filename) {
  return folders.game + QString::fromUtf8(folder == DataFolder::ini ? kIniFolder : kObjectFolder) + filename;
}

void SetManualEditFile(ManualEditRequest& request, const Folders& folders, int partial, DataFolder folder,
                       const QString& filename) {
  if (folder != DataFolder::ini && folder != DataFolder::objects) return;
  request.ManualEditPartial = partial;
  request.ManualEditFile = DataFilePath(folders, folder, filename);
}

}  // namespace korvane
