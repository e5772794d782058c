// SPDX-License-Identifier: MIT
#pragma once

#include "Styles.h"

#include <memory>

namespace tessera::mitab {

/// The object that OGR has read; it takes over the row. The kind is that of the geometry, the style and GDAL's own
/// class, which tells arcs and rectangles from lines and areas; an area that is a rectangle or a sampled ellipse to the
/// point is one, too.
[[nodiscard]] std::unique_ptr<Feature> FromOgr(OGRFeatureUniquePtr row, std::shared_ptr<const Columns> columns,
                                               StyleReader &styles);

/// The row for OGR to write. None when the object cannot be written: a line of fewer than two points, a ring of fewer
/// than three, a point without a place, coordinates that are no numbers, a date that is none.
[[nodiscard]] OGRFeatureUniquePtr ToOgr(const Feature &feature, OGRFeatureDefn &definition);

}  // namespace tessera::mitab
