// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/base/THandle.h>
#include <tessera/base/TObject.h>

namespace tessera {

TObject::~TObject() {
  TObjectHandle::Empty(this);
}

void TObject::operator delete(TObject *object, std::destroying_delete_t) {
  GuardedCall([object] { object->BeforeDestruction(); });
  void *memory = dynamic_cast<void *>(object);
  object->~TObject();
  ::operator delete(memory);
}

}  // namespace tessera
