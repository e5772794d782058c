// SPDX-License-Identifier: MIT
#include <tessera/editing/detail/ShownBounds.h>
#include <tessera/objects/TText.h>

namespace tessera::detail {

TBounds ShownBounds(const TCustomMapObject &object) {
  const auto *text = dynamic_cast<const TText *>(&object);
  if (text == nullptr || text->GetMapHost() == nullptr) return object.GetExtent().value_or(object.GetBounds());
  TBounds bounds = TBounds::Empty();
  for (const TPoint &corner : text->GetTextPolygon()) {
    const TMapPoint place = text->GetMapHost()->GetViewport().ScreenToMap(corner.x(), corner.y());
    bounds.Widen(place.X, place.Y);
  }
  return bounds;
}

}  // namespace tessera::detail
