// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TObject.h>
#include <tessera/graphics/TFont.h>

namespace tessera {

class TCustomMapObject;

/// A layer as its objects see it.
class TESSERA_CORE_EXPORT TObjectLayer : public TObject {
 public:
  /// Whether objects are labelled with one of their fields, which, and how.
  [[nodiscard]] virtual bool GetAutoLabel() const = 0;
  [[nodiscard]] virtual int GetLabelFieldIndex() const = 0;
  [[nodiscard]] virtual int GetFieldCount() const = 0;
  [[nodiscard]] virtual const TFont &GetAutoLabelFont() const = 0;
  /// Takes an object that is being destroyed out of the layer's list.
  virtual void ForgetObject(TCustomMapObject &object) = 0;
};

}  // namespace tessera
