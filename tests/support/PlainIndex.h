// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapLayer.h>

#include <algorithm>
#include <memory>
#include <vector>

namespace tessera::test {

/// The spatial index as it is described, step by step, with an object made for every question.
struct PlainCell {
  TCellBounds bounds{};
  int level = 0;
  std::vector<std::uint32_t> ids;
  std::vector<std::unique_ptr<PlainCell>> children;

  /// The tree, or none when its cells would be more than `maxCells`: division never ends where more than five objects
  /// stay together.
  static std::unique_ptr<PlainCell> Build(const TMapLayer &layer, int maxCells) {
    auto root = std::make_unique<PlainCell>();
    TBounds all = TBounds::Empty();
    for (int id = 0; id < layer.GetObjectCount(); ++id) {
      const TBounds box = layer.GetObjects(id)->GetBounds();
      if (box.MinX < all.MinX) all.MinX = box.MinX;
      if (box.MinY < all.MinY) all.MinY = box.MinY;
      if (box.MaxX > all.MaxX) all.MaxX = box.MaxX;
      if (box.MaxY > all.MaxY) all.MaxY = box.MaxY;
      root->ids.push_back(std::uint32_t(id));
    }
    root->bounds = Bounds2CellBounds(all);
    return root->Divide(layer, maxCells) ? std::move(root) : nullptr;
  }

  bool GetIdsInRect(const TCellBounds &rect, std::vector<std::uint32_t> &found) const {
    const auto box = MakeBox(bounds);
    if (!box->IntersectsRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY) &&
        !box->WithinRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY)) {
      return false;
    }
    for (const auto &child : children) child->GetIdsInRect(rect, found);
    for (const std::uint32_t id : ids) {
      if (std::find(found.begin(), found.end(), id) == found.end()) found.push_back(id);
    }
    return !found.empty();
  }

  bool GetIdsAtPoint(double x, double y, std::vector<std::uint32_t> &found) const {
    if (!(bounds.MinX <= x && bounds.MinY <= y && x <= bounds.MaxX && y <= bounds.MaxY)) return false;
    for (const auto &child : children) child->GetIdsAtPoint(x, y, found);
    found.insert(found.end(), ids.begin(), ids.end());
    return !found.empty();
  }

 private:
  bool Divide(const TMapLayer &layer, int &cellsLeft) {
    if (ids.size() <= 5) return true;
    const double midX = (bounds.MaxX - bounds.MinX) / 2 + bounds.MinX;
    const double midY = (bounds.MaxY - bounds.MinY) / 2 + bounds.MinY;
    const TCellBounds quadrants[] = {{bounds.MinX, midX, bounds.MinY, midY},
                                     {bounds.MinX, midX, midY, bounds.MaxY},
                                     {midX, bounds.MaxX, midY, bounds.MaxY},
                                     {midX, bounds.MaxX, bounds.MinY, midY}};
    for (const TCellBounds &quadrant : quadrants) {
      auto child = std::make_unique<PlainCell>();
      child->bounds = quadrant;
      child->level = level + 1;
      for (const std::uint32_t id : ids) {
        if (Meets(quadrant, *layer.GetObjects(int(id)))) child->ids.push_back(id);
      }
      if (child->ids.empty()) continue;
      if (--cellsLeft < 0 || !child->Divide(layer, cellsLeft)) return false;
      children.push_back(std::move(child));
    }
    ids.clear();
    return true;
  }
  static std::unique_ptr<TCustomMapObject> MakeBox(const TCellBounds &box) {
    auto object = std::make_unique<TCustomMapObject>();
    TMapPoints &corners = object->GetParts().Add().GetPoints();
    corners.Add(box.MinX, box.MinY);
    corners.Add(box.MinX, box.MaxY);
    corners.Add(box.MaxX, box.MaxY);
    corners.Add(box.MaxX, box.MinY);
    return object;
  }
  static bool Meets(const TCellBounds &quadrant, const TCustomMapObject &object) {
    const auto box = MakeBox(quadrant);
    return box->Contains(object) || box->Within(object) || box->Intersects(object);
  }
};

}  // namespace tessera::test
