// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/PolySplitter.h>
#include <tessera/geometry/TViewport.h>

#include <span>
#include <vector>

namespace tessera::test {

/// An outline cut to a rectangle the plain way: by four cuts of the splitter, one after the other.
inline std::vector<TMapPoint> FourCuts(const TBounds &rect, std::span<const TMapPoint> points) {
  const TPointEx leftBottom = PointEx(rect.MinX, rect.MinY);
  const TPointEx leftTop = PointEx(rect.MinX, rect.MaxY);
  const TPointEx rightTop = PointEx(rect.MaxX, rect.MaxY);
  const TPointEx rightBottom = PointEx(rect.MaxX, rect.MinY);
  TPolySplitter splitter;
  for (const TMapPoint &point : points) splitter.GetSource().Add(point.X, point.Y);
  splitter.Split(VectorEx(leftBottom, leftTop), TSplitMode::smRight);
  splitter.Split(VectorEx(leftTop, rightTop), TSplitMode::smBelow);
  splitter.Split(VectorEx(rightTop, rightBottom), TSplitMode::smLeft);
  splitter.Split(VectorEx(rightBottom, leftBottom), TSplitMode::smAbove);
  std::vector<TMapPoint> cut;
  for (const TPointEx &point : splitter.GetSource().Points()) cut.push_back({double(point.X), double(point.Y)});
  return cut;
}

}  // namespace tessera::test
