// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/base/TColor.h>

#include <span>
#include <vector>

namespace tessera {

class TCanvas;

/// A point in extended precision.
struct TPointEx {
  long double X;
  long double Y;

  bool operator==(const TPointEx &) const = default;
};

/// A directed segment.
struct TVectorEx {
  TPointEx Start;
  TPointEx End;
};

[[nodiscard]] constexpr TPointEx PointEx(long double x, long double y) {
  return {x, y};
}
[[nodiscard]] constexpr TVectorEx VectorEx(const TPointEx &a, const TPointEx &b) {
  return {a, b};
}

/// Which side of the cutting line is kept.
enum class TSplitMode { smAbove, smBelow, smLeft, smRight };

/// Growable list of points.
class TESSERA_CORE_EXPORT TPointsArray {
 public:
  void Add(long double x, long double y) { m_points.push_back({x, y}); }
  void Add(const TPointEx &point) { m_points.push_back(point); }
  void Add(std::span<const TPointEx> points) { m_points.insert(m_points.end(), points.begin(), points.end()); }
  void Clear() { m_points.clear(); }
  /// Replaces what `other` holds.
  void CopyTo(TPointsArray &other) const { other.m_points = m_points; }
  /// Copies as many points as there are and as fit.
  void CopyTo(std::span<TPointEx> points) const;
  /// @throws ERangeError outside the count.
  void Delete(int index);
  [[nodiscard]] const TPointEx &GetPoint(int index) const;
  void SetPoint(int index, const TPointEx &point);
  /// Moves every point.
  void Offset(long double dx, long double dy);
  [[nodiscard]] int GetCount() const { return int(m_points.size()); }
  [[nodiscard]] std::span<const TPointEx> Points() const { return m_points; }

 private:
  std::vector<TPointEx> m_points;
};

/// Questions about the line through one segment. All comparisons are inclusive.
class TESSERA_CORE_EXPORT TVectorOperations {
 public:
  TVectorOperations() = default;
  explicit TVectorOperations(const TVectorEx &vector) : m_vector(vector) {}
  void SetVector(const TVectorEx &vector) { m_vector = vector; }

  /// The line y = a x + b; (0, y) for a horizontal vector and (0, 0) for a vertical one.
  void GetParams(long double &a, long double &b) const;
  [[nodiscard]] long double GetParamA() const;
  [[nodiscard]] long double GetParamB() const;
  [[nodiscard]] bool IsVert() const { return m_vector.Start.X == m_vector.End.X; }
  /// A vector of no length is horizontal as well as vertical, and is treated as horizontal.
  [[nodiscard]] bool IsHorz() const { return m_vector.Start.Y == m_vector.End.Y; }
  [[nodiscard]] bool IsAny() const { return !IsHorz() && !IsVert(); }

  // The side tests compare with both end points, not with the line: they are meant for axis-parallel vectors.
  [[nodiscard]] bool IsPointAbove(const TPointEx &p) const { return p.Y >= m_vector.Start.Y && p.Y >= m_vector.End.Y; }
  [[nodiscard]] bool IsPointBelow(const TPointEx &p) const { return p.Y <= m_vector.Start.Y && p.Y <= m_vector.End.Y; }
  [[nodiscard]] bool IsPointLeft(const TPointEx &p) const { return p.X <= m_vector.Start.X && p.X <= m_vector.End.X; }
  [[nodiscard]] bool IsPointRight(const TPointEx &p) const { return p.X >= m_vector.Start.X && p.X >= m_vector.End.X; }
  /// Whether `point` lies in the bounding rectangle of the segment.
  [[nodiscard]] bool IsPointInsideBoundsRect(const TPointEx &point) const;
  /// The side test of the mode.
  [[nodiscard]] bool IsPointValid(const TPointEx &point, TSplitMode mode) const;
  /// Whether the endless line through the vector meets `segment`, and where. Parallel and collinear ones do not meet.
  [[nodiscard]] bool IsIntersected(const TVectorEx &segment, TPointEx &point) const;

 private:
  TVectorEx m_vector{};
};

/// Cuts a closed outline by a straight line and keeps what lies on one side.
class TESSERA_CORE_EXPORT TPolySplitter {
 public:
  /// The outline, to be filled and read.
  [[nodiscard]] TPointsArray &GetSource() { return m_source; }
  void SetSource(TPointsArray source) { m_source = std::move(source); }
  [[nodiscard]] TPointsArray &GetDestination() { return m_destination; }
  void SetDestination(TPointsArray destination) { m_destination = std::move(destination); }
  /// Empties both lists.
  void Reset();

  /// Points on the kept side stay; every other one is replaced by up to two points, where the line meets the edges to
  /// its neighbours. The source becomes the cut outline. When nothing is left the answer is false and the source is
  /// left whole: an outline that lies wholly on the discarded side is not emptied, which is intended.
  bool Split(const TVectorEx &vector, TSplitMode mode);

 private:
  TPointsArray m_source;
  TPointsArray m_destination;
};

/// Marks a point with a small cross, for looking at outlines; coordinates are client pixels.
TESSERA_CORE_EXPORT void DrawPoint(TCanvas &canvas, const TPointEx &point, TColor color);
TESSERA_CORE_EXPORT void DrawPoints(TCanvas &canvas, const TPointsArray &points, TColor color);

}  // namespace tessera
