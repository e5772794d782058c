// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomClickTool.h>

namespace tessera {

/// Puts geodesic circles of the standard radius (see TGeoCircle) into the editable layer, for maps in degrees.
class TESSERA_WIDGETS_EXPORT TCircleTool : public TCustomClickTool {
  Q_OBJECT

 public:
  explicit TCircleTool(QObject *parent = nullptr);

 protected:
  void PutObject(TMapLayer &layer, const TMapPoint &at) override;
};

}  // namespace tessera
