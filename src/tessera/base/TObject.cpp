// SPDX-License-Identifier: MIT
#include <tessera/base/TObject.h>

namespace tessera {

TObject::~TObject() = default;

}  // namespace tessera
