// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/MessageSink.h>
#include <tessera/map/TTessera.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRegion.h>

#include <QApplication>
#include <QPaintEvent>
#include <gtest/gtest.h>

#include <functional>
#include <initializer_list>
#include <vector>

namespace tessera::test {

/// A map of 200 x 100 pixels whose pixel (x, y) shows the map point (x, 100 - y). Messages are collected.
class MapFixture : public testing::Test {
 protected:
  MapFixture() : m_sinkBefore(SetMessageSink([this](const QString &text) { messages << text; })) {
    map.resize(200, 100);
    map.SetMinX(0);
    map.SetMinY(0);
    map.SetMaxX(200);
    map.SetMaxY(100);
    LookAt(100, 50);
  }

  ~MapFixture() override { SetMessageSink(m_sinkBefore); }

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

  /// The rectangles that the control, on the screen, shows anew because of `action`.
  std::vector<QRect> Repaints(const std::function<void()> &action) {
    struct PaintLog : QObject {
      std::vector<QRect> rects;
      bool eventFilter(QObject * /*watched*/, QEvent *event) override {
        if (event->type() == QEvent::Paint) rects.push_back(static_cast<QPaintEvent *>(event)->rect());
        return false;
      }
    } log;
    map.show();
    QApplication::processEvents();
    map.installEventFilter(&log);
    action();
    // Twice, because a paint event may ask for another one.
    QApplication::processEvents();
    QApplication::processEvents();
    return log.rects;
  }

  QStringList messages;
  TTessera map;

 private:
  TMessageSink m_sinkBefore;
};

}  // namespace tessera::test
