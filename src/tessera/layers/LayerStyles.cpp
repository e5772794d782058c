// SPDX-License-Identifier: MIT
#include <tessera/layers/LayerStyles.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TSprite.h>
#include <tessera/objects/TText.h>

#include <algorithm>
#include <cstdint>
#include <optional>

namespace tessera {
namespace {

constexpr std::int64_t MostLookedAt = 4096;

std::optional<TStyleSample> LookOf(const TCustomMapObject &object) {
  const bool isLookless = dynamic_cast<const TText *>(&object) || dynamic_cast<const TSprite *>(&object);
  if (isLookless) return std::nullopt;
  TStyleSample look{TStyleSample::skArea, *object.GetStyle(), 0};
  if (const auto *symbol = dynamic_cast<const TSymbol *>(&object)) {
    if (symbol->GetShape() == TSymbol::NoShape) return std::nullopt;
    look.kind = TStyleSample::skSymbol;
    look.shape = symbol->GetShape();
  } else if (dynamic_cast<const TPolyline *>(&object)) {
    look.kind = TStyleSample::skLine;
  }
  return look;
}

}  // namespace

bool TStyleSample::LooksLike(const TStyleSample &other) const {
  if (kind != other.kind) return false;
  if (kind == skLine) return style.pen == other.style.pen;
  if (kind == skSymbol) return shape == other.shape && style.font == other.style.font;
  const bool isGroundAlike =
      style.useBGColor == other.style.useBGColor && (!style.useBGColor || style.bgColor == other.style.bgColor);
  return isGroundAlike && style.pen == other.style.pen && style.brush == other.style.brush;
}

std::vector<TStyleSample> FindStyles(const TMapLayer &layer, int limit) {
  std::vector<TStyleSample> found;
  const std::int64_t count = layer.GetObjectCount();
  const std::int64_t lookedAt = std::min(count, MostLookedAt);
  for (std::int64_t i = 0; i < lookedAt && int(found.size()) < limit; ++i) {
    const std::optional<TStyleSample> look = LookOf(*layer.GetObjects(int(i * count / lookedAt)));
    const bool isNew = look && std::none_of(found.begin(), found.end(),
                                            [&look](const TStyleSample &other) { return other.LooksLike(*look); });
    if (isNew) found.push_back(*look);
  }
  return found;
}

}  // namespace tessera
