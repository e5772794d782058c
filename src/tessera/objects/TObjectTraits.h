// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

namespace tessera {

/// Base of what TCustomMapObject::GetTraits gives.
struct TESSERA_CORE_EXPORT TObjectTraits {
  virtual ~TObjectTraits() = default;
};

}  // namespace tessera
