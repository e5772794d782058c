// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomRectTool.h>

namespace tessera {

/// Base of tools that zoom by a rectangle or a click. The middle of the rectangle becomes that of the view; a zoom that
/// comes back to exactly 1 goes home instead, to the centre (0, 0).
class TESSERA_WIDGETS_EXPORT TCustomZoomTool : public TCustomRectTool {
  Q_OBJECT

 public:
  explicit TCustomZoomTool(QObject *parent = nullptr);

  /// The zoom that the finished rectangle asks for; 1 without a map.
  [[nodiscard]] virtual double GetNewZoom() const = 0;
  /// Where the zoom stays as it is, so does the view.
  bool Complete() override;
};

}  // namespace tessera
