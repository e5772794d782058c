// SPDX-License-Identifier: MIT
#pragma once

#include "FakeMapHost.h"
#include "Printers.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace tessera::test {

/// Tools whose colours no map has by itself.
constexpr TColor FillColor = RGB(255, 200, 0);
constexpr TColor LineColor = RGB(0, 100, 255);

/// Puts an object on a map, with a pen of LineColor and a brush of FillColor.
inline void GiveTools(TCustomMapObject &object, TMapHost &host, TBrushStyle style = TBrushStyle::bsSolid) {
  TPen pen;
  pen.SetColor(LineColor);
  TBrush brush;
  brush.SetColor(FillColor);
  brush.SetStyle(style);
  object.SetPen(pen);
  object.SetBrush(brush);
  object.SetMap(&host);
}

/// A pixel of a map and the colour that it should have.
struct TPixel {
  int x, y;
  TColor color;
};
inline void ExpectPixels(const TFakeMapHost &host, std::initializer_list<TPixel> pixels) {
  for (const TPixel &pixel : pixels) EXPECT_EQ(host.At(pixel.x, pixel.y), pixel.color) << pixel.x << ' ' << pixel.y;
}

/// The rectangle about all pixels that are not white; null when there are none.
inline QRect InkOf(const TFakeMapHost &host) {
  const QImage &image = host.picture.GetImage();
  QRect ink;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (host.At(x, y) != clWhite) ink |= QRect(x, y, 1, 1);
    }
  }
  return ink;
}

/// Paints an object; then its highlight must show, go away when it is drawn again, and not be drawn where none is
/// shown.
inline void ExpectTwoHighlightsCancel(TFakeMapHost &host, TCustomMapObject &object) {
  object.Paint();
  const QImage before = host.picture.GetImage().copy();
  object.DrawSelection();
  EXPECT_NE(host.picture.GetImage(), before);
  object.DrawSelection();
  EXPECT_EQ(host.picture.GetImage(), before);
  host.flags.ShowSelection = false;
  object.DrawSelection();
  EXPECT_EQ(host.picture.GetImage(), before);
  host.flags.ShowSelection = true;
}

inline void ExpectHits(const TCustomMapObject &object, std::initializer_list<TMapPoint> hits,
                       std::initializer_list<TMapPoint> misses) {
  for (const TMapPoint &point : hits) {
    EXPECT_TRUE(object.ContainsPoint(point.X, point.Y)) << testing::PrintToString(point);
  }
  for (const TMapPoint &point : misses) {
    EXPECT_FALSE(object.ContainsPoint(point.X, point.Y)) << testing::PrintToString(point);
  }
}

/// A rectangle and what an object should answer about it.
struct TRectAnswers {
  TBounds rect;
  bool intersects, contains, within;
};
inline void ExpectRectAnswers(const TCustomMapObject &object, std::initializer_list<TRectAnswers> rows) {
  for (const auto &[r, intersects, contains, within] : rows) {
    EXPECT_EQ(object.IntersectsRect(r.MinX, r.MinY, r.MaxX, r.MaxY), intersects) << testing::PrintToString(r);
    EXPECT_EQ(object.ContainsRect(r.MinX, r.MinY, r.MaxX, r.MaxY), contains) << testing::PrintToString(r);
    EXPECT_EQ(object.WithinRect(r.MinX, r.MinY, r.MaxX, r.MaxY), within) << testing::PrintToString(r);
  }
}

}  // namespace tessera::test
