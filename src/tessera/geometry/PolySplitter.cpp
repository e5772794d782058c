// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/geometry/PolySplitter.h>
#include <tessera/graphics/TCanvas.h>

#include <algorithm>
#include <cmath>

namespace tessera {
namespace {

constexpr char PointIndex[] = "Point";

bool IsBetween(long double value, long double a, long double b) {
  return value >= std::min(a, b) && value <= std::max(a, b);
}

/// The coordinate `across` of the segment where its coordinate along the other axis is `at`; never outside the segment,
/// whatever the rounding.
long double Interpolate(long double at, long double along1, long double along2, long double across1,
                        long double across2) {
  const long double value = across1 + (at - along1) * (across2 - across1) / (along2 - along1);
  return std::clamp(value, std::min(across1, across2), std::max(across1, across2));
}

}  // namespace

void TPointsArray::CopyTo(std::span<TPointEx> points) const {
  std::copy_n(m_points.begin(), std::min(points.size(), m_points.size()), points.begin());
}

void TPointsArray::Delete(int index) {
  m_points.erase(m_points.begin() + std::ptrdiff_t(CheckedIndex(index, m_points.size(), PointIndex)));
}

const TPointEx &TPointsArray::GetPoint(int index) const {
  return m_points[CheckedIndex(index, m_points.size(), PointIndex)];
}

void TPointsArray::SetPoint(int index, const TPointEx &point) {
  m_points[CheckedIndex(index, m_points.size(), PointIndex)] = point;
}

void TPointsArray::Offset(long double dx, long double dy) {
  for (TPointEx &point : m_points) point = {point.X + dx, point.Y + dy};
}

void TVectorOperations::GetParams(long double &a, long double &b) const {
  a = 0;
  b = 0;
  if (IsHorz()) {
    b = m_vector.Start.Y;
  } else if (!IsVert()) {
    a = (m_vector.End.Y - m_vector.Start.Y) / (m_vector.End.X - m_vector.Start.X);
    b = m_vector.End.Y - a * m_vector.End.X;
  }
}

long double TVectorOperations::GetParamA() const {
  long double a = 0;
  long double b = 0;
  GetParams(a, b);
  return a;
}

long double TVectorOperations::GetParamB() const {
  long double a = 0;
  long double b = 0;
  GetParams(a, b);
  return b;
}

bool TVectorOperations::IsPointInsideBoundsRect(const TPointEx &point) const {
  return IsBetween(point.X, m_vector.Start.X, m_vector.End.X) && IsBetween(point.Y, m_vector.Start.Y, m_vector.End.Y);
}

bool TVectorOperations::IsPointValid(const TPointEx &point, TSplitMode mode) const {
  switch (mode) {
    case TSplitMode::smAbove:
      return IsPointAbove(point);
    case TSplitMode::smBelow:
      return IsPointBelow(point);
    case TSplitMode::smLeft:
      return IsPointLeft(point);
    case TSplitMode::smRight:
      return IsPointRight(point);
  }
  return false;
}

bool TVectorOperations::IsIntersected(const TVectorEx &segment, TPointEx &point) const {
  const TPointEx &p1 = segment.Start;
  const TPointEx &p2 = segment.End;
  if (IsHorz()) {
    const long double y = m_vector.Start.Y;
    if (p1.Y == p2.Y || !IsBetween(y, p1.Y, p2.Y)) return false;
    point = {Interpolate(y, p1.Y, p2.Y, p1.X, p2.X), y};
    return true;
  }
  if (IsVert()) {
    const long double x = m_vector.Start.X;
    if (p1.X == p2.X || !IsBetween(x, p1.X, p2.X)) return false;
    point = {x, Interpolate(x, p1.X, p2.X, p1.Y, p2.Y)};
    return true;
  }
  long double a = 0;
  long double b = 0;
  GetParams(a, b);
  const long double height1 = p1.Y - (a * p1.X + b);
  const long double height2 = p2.Y - (a * p2.X + b);
  if (height1 == height2 || !IsBetween(0, height1, height2)) return false;
  point = {Interpolate(0, height1, height2, p1.X, p2.X), Interpolate(0, height1, height2, p1.Y, p2.Y)};
  return true;
}

void TPolySplitter::Reset() {
  m_source.Clear();
  m_destination.Clear();
}

bool TPolySplitter::Split(const TVectorEx &vector, TSplitMode mode) {
  const TVectorOperations line(vector);
  const auto points = m_source.Points();
  m_destination.Clear();
  for (std::size_t i = 0; i < points.size(); ++i) {
    if (line.IsPointValid(points[i], mode)) {
      m_destination.Add(points[i]);
      continue;
    }
    const TPointEx &previous = points[i == 0 ? points.size() - 1 : i - 1];
    const TPointEx &next = points[i + 1 == points.size() ? 0 : i + 1];
    TPointEx crossing{};
    if (line.IsIntersected(VectorEx(previous, points[i]), crossing)) m_destination.Add(crossing);
    if (line.IsIntersected(VectorEx(points[i], next), crossing)) m_destination.Add(crossing);
  }
  if (m_destination.GetCount() == 0) return false;
  m_destination.CopyTo(m_source);
  return true;
}

void DrawPoint(TCanvas &canvas, const TPointEx &point, TColor color) {
  constexpr int ArmPx = 2;
  const int x = int(std::lrint(double(point.X)));
  const int y = int(std::lrint(double(point.Y)));
  canvas.Pen().SetColor(color);
  canvas.MoveTo(x - ArmPx, y);
  canvas.LineTo(x + ArmPx + 1, y);
  canvas.MoveTo(x, y - ArmPx);
  canvas.LineTo(x, y + ArmPx + 1);
}

void DrawPoints(TCanvas &canvas, const TPointsArray &points, TColor color) {
  for (const TPointEx &point : points.Points()) DrawPoint(canvas, point, color);
}

}  // namespace tessera
