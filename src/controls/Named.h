// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>

namespace korvane {

// The object itself, with the name as its objectName.
template <typename Object>
Object* Named(const char* name, Object* object) {
  object->setObjectName(name);
  return object;
}

}  // namespace korvane
