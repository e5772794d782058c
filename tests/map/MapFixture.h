// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRegion.h>

#include <QApplication>
#include <gtest/gtest.h>

#include <initializer_list>

namespace tessera::test {

/// A map of 200 x 100 pixels whose pixel (x, y) shows the map point (x, 100 - y).
class MapFixture : public testing::Test {
 protected:
  MapFixture() {
    map.resize(200, 100);
    map.SetMinX(0);
    map.SetMinY(0);
    map.SetMaxX(200);
    map.SetMaxY(100);
    LookAt(100, 50);
  }

  void LookAt(double x, double y, double zoom = 1) {
    map.SetCenterX(x);
    map.SetCenterY(y);
    map.SetZoom(zoom);
  }

  TMapLayer *AddLayer() { return map.GetLayers()->Add(QString(), QStringLiteral("layer")); }

  /// A filled square without an outline.
  static TRegion *AddSquare(TMapLayer *layer, double left, double bottom, double size, TColor color) {
    auto *square = layer->NewObject<TRegion>();
    TMapPoints &points = square->GetParts().Add().GetPoints();
    for (const TMapPoint &corner : {TMapPoint{0, 0}, {size, 0}, {size, size}, {0, size}, {0, 0}}) {
      points.Add(left + corner.X, bottom + corner.Y);
    }
    TBrush brush;
    brush.SetColor(color);
    square->SetBrush(brush);
    TPen pen;
    pen.SetColor(color);
    square->SetPen(pen);
    return square;
  }

  /// What the control shows, after the repaints that are due.
  QImage Shown() {
    QApplication::processEvents();
    return map.grab().toImage().convertToFormat(QImage::Format_RGB32);
  }

  /// What the control shows after a rebuild of its picture.
  QImage Repainted() {
    map.DoUpdate(true);
    return Shown();
  }

  static QRgb Pixel(TColor color) { return ToRgb(color); }

  TTessera map;
};

}  // namespace tessera::test
