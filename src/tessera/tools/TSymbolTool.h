// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomClickTool.h>

namespace tessera {

/// Puts symbols of the shape and font that the map's options say into the editable layer.
class TESSERA_WIDGETS_EXPORT TSymbolTool : public TCustomClickTool {
  Q_OBJECT

 public:
  explicit TSymbolTool(QObject *parent = nullptr);

 protected:
  void PutObject(TMapLayer &layer, const TMapPoint &at) override;
};

}  // namespace tessera
