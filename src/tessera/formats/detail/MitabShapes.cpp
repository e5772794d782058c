// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/MitabShapes.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tessera::detail {
namespace {

using Points = std::span<const TMapPoint>;

/// The circle through three points; none when they lie in line.
std::optional<CircleFigure> CircleOf(const TMapPoint &a, const TMapPoint &b, const TMapPoint &c) {
  const TMapPoint ab{b.X - a.X, b.Y - a.Y};
  const TMapPoint ac{c.X - a.X, c.Y - a.Y};
  const double area = 2 * (ab.X * ac.Y - ab.Y * ac.X);
  if (area == 0) return std::nullopt;
  const double squareB = ab.X * ab.X + ab.Y * ab.Y;
  const double squareC = ac.X * ac.X + ac.Y * ac.Y;
  const TMapPoint center{(ac.Y * squareB - ab.Y * squareC) / area, (ab.X * squareC - ac.X * squareB) / area};
  return CircleFigure{{a.X + center.X, a.Y + center.Y}, std::hypot(center.X, center.Y)};
}

bool IsInside(const TMapPoint &point, Points ring) {
  bool isInside = false;
  for (std::size_t i = 0, before = ring.size() - 1; i < ring.size(); before = i++) {
    const TMapPoint &a = ring[i];
    const TMapPoint &b = ring[before];
    if ((a.Y > point.Y) == (b.Y > point.Y)) continue;
    if (point.X < (b.X - a.X) * (point.Y - a.Y) / (b.Y - a.Y) + a.X) isInside = !isInside;
  }
  return isInside;
}

struct Ring {
  Points points;
  TBounds bounds;
  std::vector<int> around;  ///< The rings that it lies in.
};

double AreaOf(const TBounds &bounds) {
  return (bounds.MaxX - bounds.MinX) * (bounds.MaxY - bounds.MinY);
}

std::vector<Ring> NestedRings(std::span<const TPart> parts) {
  std::vector<Ring> rings;
  for (const TPart &part : parts) rings.push_back({part.GetPoints().Points(), part.GetPoints().GetBounds(), {}});
  for (std::size_t i = 0; i < rings.size(); ++i) {
    if (rings[i].points.empty()) continue;
    const TMapPoint &place = rings[i].points.front();
    for (std::size_t other = 0; other < rings.size(); ++other) {
      const bool mayHold = other != i && rings[other].bounds.ContainsPoint(place.X, place.Y) &&
                           AreaOf(rings[other].bounds) >= AreaOf(rings[i].bounds);
      if (mayHold && IsInside(place, rings[other].points)) rings[i].around.push_back(int(other));
    }
  }
  return rings;
}

bool IsHole(const Ring &ring) {
  return ring.around.size() % 2 == 1;
}

/// A round number that is at least `value`: one, two or five with noughts.
double RoundUp(double value) {
  const double power = std::pow(10, std::floor(std::log10(value)));
  for (const double factor : {1, 2, 5}) {
    if (factor * power >= value) return factor * power;
  }
  return 10 * power;
}

/// The two borders of one direction.
std::pair<double, double> RoundRange(double low, double high) {
  constexpr double Room = 1.01;
  constexpr double LeastReach = 1e-3;
  constexpr double LeastOfCoordinate = 1e-6;
  const double farthest = std::max(std::abs(low), std::abs(high));
  const double reach = RoundUp(std::max({(high - low) / 2 * Room, farthest * LeastOfCoordinate, LeastReach}));
  // The centre lies on a step that every finer one divides, too.
  const double center = std::round((low + high) / 2 / reach) * reach;
  return {center - 2 * reach, center + 2 * reach};
}

TMapPoint DownTheBox(double angleDeg, double height) {
  const double angle = angleDeg * std::numbers::pi / 180;
  return {height * std::sin(angle), -height * std::cos(angle)};
}

}  // namespace

std::optional<CircleFigure> CircleThrough(Points points) {
  constexpr std::size_t LeastPoints = 8;
  constexpr double OfRadius = 1e-6;
  constexpr double OfCoordinates = 2e-8;
  if (points.size() < LeastPoints) return std::nullopt;
  const std::size_t third = points.size() / 3;
  const auto circle = CircleOf(points[0], points[third], points[2 * third]);
  if (!circle) return std::nullopt;
  const double size = std::max(std::abs(circle->center.X), std::abs(circle->center.Y)) + circle->radius;
  const double tolerance = OfRadius * circle->radius + OfCoordinates * size;
  const bool isRound = std::all_of(points.begin(), points.end(), [&](const TMapPoint &point) {
    const double distance = std::hypot(point.X - circle->center.X, point.Y - circle->center.Y);
    return std::abs(distance - circle->radius) <= tolerance;
  });
  return isRound && tolerance < circle->radius / 100 ? circle : std::nullopt;
}

std::vector<std::vector<int>> IslandsOf(std::span<const TPart> parts) {
  const std::vector<Ring> rings = NestedRings(parts);
  std::vector<std::vector<int>> islands;
  std::vector<std::size_t> islandOf(rings.size());
  for (std::size_t i = 0; i < rings.size(); ++i) {
    if (IsHole(rings[i])) continue;
    islandOf[i] = islands.size();
    islands.push_back({int(i)});
  }
  for (std::size_t i = 0; i < rings.size(); ++i) {
    if (!IsHole(rings[i])) continue;
    int outer = -1;
    for (const int around : rings[i].around) {
      const bool isSmaller =
          outer < 0 || AreaOf(rings[std::size_t(around)].bounds) < AreaOf(rings[std::size_t(outer)].bounds);
      if (!IsHole(rings[std::size_t(around)]) && isSmaller) outer = around;
    }
    if (outer < 0) {
      islands.push_back({int(i)});
    } else {
      islands[islandOf[std::size_t(outer)]].push_back(int(i));
    }
  }
  return islands;
}

TBounds RoundBounds(const TBounds &bounds) {
  const auto [west, east] = RoundRange(bounds.MinX, bounds.MaxX);
  const auto [south, north] = RoundRange(bounds.MinY, bounds.MaxY);
  return {west, south, east, north};
}

TMapPoint TextAnchor(const TMapPoint &corner, double angleDeg, double height) {
  const TMapPoint down = DownTheBox(angleDeg, height);
  return {corner.X - down.X, corner.Y - down.Y - height};
}

TMapPoint TextCorner(const TMapPoint &anchor, double angleDeg, double height) {
  const TMapPoint down = DownTheBox(angleDeg, height);
  return {anchor.X + down.X, anchor.Y + height + down.Y};
}

}  // namespace tessera::detail
