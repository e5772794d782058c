// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/TViewport.h>

#include <cmath>
#include <random>
#include <vector>

namespace tessera::test {

/// A seeded source of outlines in map units.
class TRandomShapes {
 public:
  explicit TRandomShapes(unsigned seed) : m_engine(seed) {}

  double Real(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_engine); }
  int Whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_engine); }

  /// Corners anywhere in the bounds.
  std::vector<TMapPoint> Tangle(const TBounds &bounds, int corners) {
    std::vector<TMapPoint> points(std::size_t(corners), TMapPoint{});
    for (TMapPoint &point : points) point = {Real(bounds.MinX, bounds.MaxX), Real(bounds.MinY, bounds.MaxY)};
    return points;
  }
  /// Corners on a grid of `steps` by `steps` over the bounds, so that many lie on one line.
  std::vector<TMapPoint> OnGrid(const TBounds &bounds, int steps, int corners) {
    std::vector<TMapPoint> points(std::size_t(corners), TMapPoint{});
    for (TMapPoint &point : points) {
      point = {bounds.MinX + (bounds.MaxX - bounds.MinX) * Whole(0, steps) / steps,
               bounds.MinY + (bounds.MaxY - bounds.MinY) * Whole(0, steps) / steps};
    }
    return points;
  }
  /// A ragged ring about a centre.
  std::vector<TMapPoint> Ring(const TMapPoint &centre, double radius, int corners) {
    std::vector<TMapPoint> points(std::size_t(corners), TMapPoint{});
    for (int i = 0; i < corners; ++i) {
      const double angle = 2 * std::acos(-1.0) * i / corners;
      const double reach = radius * Real(0.8, 1.2);
      points[std::size_t(i)] = {centre.X + reach * std::cos(angle), centre.Y + reach * std::sin(angle)};
    }
    return points;
  }

 private:
  std::mt19937 m_engine;
};

}  // namespace tessera::test
