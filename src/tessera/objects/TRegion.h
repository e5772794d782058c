// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

namespace tessera {

namespace detail {
class ScreenOutliner;
}

/// A filled area of one or more rings: a ring within an earlier one is a hole, one outside it an island. Within a ring
/// the winding rule holds. The outline is drawn as the vertices stand: a ring closes only if its last vertex repeats
/// the first. The hit tests are those of the base, so a click within the bounds but outside the rings hits; that is
/// intended.
class TESSERA_CORE_EXPORT TRegion : public TCustomMapObject {
 public:
  /// In the FastDraw mode only parts of one point are accepted. @throws ERangeError there for any other part, before
  /// anything is drawn, which is intended.
  void Draw() override;
  [[nodiscard]] std::unique_ptr<TCustomMapObject> Clone() const override;
  void DrawSelection() override { DrawFigureAsSelection(); }
  [[nodiscard]] std::optional<TBounds> GetExtent() const override { return GetVertexExtent(); }
  [[nodiscard]] std::optional<int> GetPickReachPx() const override { return 0; }
  [[nodiscard]] TBoxContainment GetBoxContainment() const override { return TBoxContainment::ByBounds; }

 private:
  void DrawAsRegion(detail::ScreenOutliner &outliner, TCanvas &canvas);
  void Fill(TCanvas &canvas, const class TRgn &region);
  void DrawAsPolygons(detail::ScreenOutliner &outliner, TCanvas &canvas);
};

}  // namespace tessera
