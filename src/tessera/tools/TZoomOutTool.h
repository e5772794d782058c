// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomZoomTool.h>

namespace tessera {

/// Zooms out, no further than the map's MinZoom: by 2 for a click, or until the present view is as wide as the dragged
/// rectangle is large. Its size is the larger of the two way lengths of the drag, where a way to the left or up is
/// negative, so that a drag that way may count by its shorter side; this is intended.
class TESSERA_WIDGETS_EXPORT TZoomOutTool : public TCustomZoomTool {
  Q_OBJECT

 public:
  explicit TZoomOutTool(QObject *parent = nullptr);

  [[nodiscard]] double GetNewZoom() const override;
};

}  // namespace tessera
