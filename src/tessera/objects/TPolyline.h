// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

namespace tessera {

/// An open line of one or more parts. Its hit tests are those of the base: bounds and vertices.
class TESSERA_CORE_EXPORT TPolyline : public TCustomMapObject {
 public:
  void Draw() override;
  [[nodiscard]] std::unique_ptr<TCustomMapObject> Clone() const override;
  void DrawSelection() override { DrawFigureAsSelection(); }
  [[nodiscard]] std::optional<TBounds> GetExtent() const override { return GetVertexExtent(); }
  [[nodiscard]] std::optional<int> GetPickReachPx() const override { return 0; }
  [[nodiscard]] TBoxContainment GetBoxContainment() const override { return TBoxContainment::ByBounds; }
};

}  // namespace tessera
