// SPDX-License-Identifier: GPL-3.0-or-later
#include "mainwindow/ObjectNotices.h"

#include "app/BlockNotices.h"
#include "app/Services.h"
#include "ini/DataFiles.h"
#include "mainwindow/ObjectTreeModel.h"
#include "platform/TextEncoding.h"

namespace korvane {

void ObjectNotices::tellAbout(const ObjectNode& node) {
  const ProgramPath path = IniPath(services_.folders.game.toStdString(), node.file);
  ShownBlock block;
  bar_.tell(objectNotices, ReadNotices({QString::fromStdString(path.text()), "Object", FromBytes(node.text)},
                                       launcher_, block));
}

void ObjectNotices::clear() {
  bar_.clear(objectNotices);
}

}  // namespace korvane
