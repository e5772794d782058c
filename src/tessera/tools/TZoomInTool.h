// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomZoomTool.h>

namespace tessera {

/// Zooms in: by 2 for a click, no further than the map's MaxZoom; or, without that limit, until the dragged rectangle
/// fills the view.
class TESSERA_WIDGETS_EXPORT TZoomInTool : public TCustomZoomTool {
  Q_OBJECT

 public:
  explicit TZoomInTool(QObject *parent = nullptr);

  [[nodiscard]] double GetNewZoom() const override;
};

}  // namespace tessera
