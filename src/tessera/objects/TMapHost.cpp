// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/objects/TCustomMapObject.h>
#include <tessera/objects/TMapScopes.h>

namespace tessera {

TMapHost::~TMapHost() {
  for (TCustomMapObject *object : m_looseObjects) object->ForgetMap();
}

TProgressScope::~TProgressScope() {
  GuardedCall([this] { m_map.StopProgress(); });
}

}  // namespace tessera
