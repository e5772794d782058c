// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/TMapMeasure.h>
#include <tessera/objects/TCustomMapObject.h>

namespace tessera {

/// The size of an object, in the unit of a measure: of a polyline the length of its parts; of an area its outline,
/// every ring of it, and what it encloses. Symbols, texts and sprites have neither.
struct TObjectSize {
  double length = 0;
  double area = 0;
};

/// Measures an object. Rings within others are holes in them, or islands in holes: each ring lies where its first
/// vertex does, and which way it runs is of no account. A circle that is round on the map is measured as a ring of 720
/// points on the ellipsoid, and exactly on the plane. The cost is linear in the vertices, but for rings whose boxes lie
/// in each other.
[[nodiscard]] TESSERA_CORE_EXPORT TObjectSize MeasureObject(const TCustomMapObject &object, const TMapMeasure &measure);

}  // namespace tessera
