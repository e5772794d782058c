// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QPoint>
#include <QRect>

#include <cstdint>
#include <span>
#include <vector>

namespace tessera {

/// A point in client pixels, y growing downwards.
using TPoint = QPoint;

/// What a combination of regions came to.
enum class TRgnComplexity { Error, NullRegion, SimpleRegion, ComplexRegion };
enum class TFillMode { Alternate, Winding };

/// A set of pixels in client or device pixels, kept as horizontal runs sorted by row and column.
/// The pixels of a polygon are those that QRegion(polygon, rule) holds, cut to a clip rectangle, which also bounds time
/// and memory whatever the coordinates.
class TESSERA_CORE_EXPORT TRgn {
 public:
  /// The pixels from `left` up to and without `right` in row `y`.
  struct Run {
    std::int32_t y;
    std::int32_t left;
    std::int32_t right;
    bool operator==(const Run &) const = default;
  };

  TRgn() = default;

  /// The pixels inside a polygon, which is closed from its last point to its first. Fewer than three points give an
  /// empty region. Reuses the storage of the region.
  void SetPolygon(std::span<const TPoint> points, TFillMode mode, const QRect &clip);
  /// This region becomes the pixels that are in just one of the two.
  void XorWith(const TRgn &other);

  [[nodiscard]] bool IsEmpty() const { return m_runs.empty(); }
  [[nodiscard]] TRgnComplexity GetComplexity() const;
  [[nodiscard]] std::span<const Run> Runs() const { return m_runs; }

 private:
  std::vector<Run> m_runs;
};

}  // namespace tessera
