// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/PolySplitter.h>
#include <tessera/geometry/TViewport.h>

#include <ostream>

// How failed tests show the library's values.
namespace tessera {

inline void PrintTo(const TMapPoint &point, std::ostream *stream) {
  *stream << '(' << point.X << ", " << point.Y << ')';
}
inline void PrintTo(const TPointEx &point, std::ostream *stream) {
  *stream << '(' << point.X << ", " << point.Y << ')';
}
inline void PrintTo(const TBounds &bounds, std::ostream *stream) {
  *stream << '[' << bounds.MinX << ", " << bounds.MinY << " .. " << bounds.MaxX << ", " << bounds.MaxY << ']';
}

}  // namespace tessera
