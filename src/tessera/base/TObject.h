// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

namespace tessera {

/// Root of everything that can be the subject of a map event: layers, the layer collection, map objects.
class TESSERA_CORE_EXPORT TObject {
 public:
  TObject() = default;
  TObject(const TObject &) = delete;
  TObject &operator=(const TObject &) = delete;
  virtual ~TObject();
};

}  // namespace tessera
