// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/base/THandle.h>
#include <tessera/base/TObject.h>

namespace tessera {

TObject::~TObject() {
  TObjectHandle::Empty(this);
}

void *TObject::End(TObject *object) {
  GuardedCall([object] { object->BeforeDestruction(); });
  void *memory = dynamic_cast<void *>(object);
  object->~TObject();
  return memory;
}

void TObject::operator delete(TObject *object, std::destroying_delete_t) {
  ::operator delete(End(object));
}

}  // namespace tessera
