// SPDX-License-Identifier: MIT
#include "CircleBench.h"

#include <tessera/graphics/TCanvas.h>

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <random>
#include <vector>

namespace tessera::bench {
namespace {

constexpr int Circles = 100'000;
constexpr double MillisecondsPerSecond = 1000;

struct FlatCircle {
  TPoint centre;
  int radius;
};

/// Few are large, as with towns and their reach.
std::vector<FlatCircle> MakeCircles(QSize size) {
  std::mt19937 random(21);
  std::uniform_real_distribution<double> share(0, 1);
  std::vector<FlatCircle> circles;
  circles.reserve(Circles);
  for (int i = 0; i < Circles; ++i) {
    circles.push_back({{int(share(random) * size.width()), int(share(random) * size.height())},
                       int(2 / std::sqrt(share(random) + 1e-4))});
  }
  return circles;
}

std::vector<TPoint> OutlineOf(const FlatCircle &circle) {
  const int corners = std::max(8, int(2 * M_PI * circle.radius));
  std::vector<TPoint> outline;
  for (int i = 0; i < corners; ++i) {
    const double angle = 2 * M_PI * i / corners;
    outline.emplace_back(circle.centre.x() + int(std::lround(circle.radius * std::cos(angle))),
                         circle.centre.y() + int(std::lround(circle.radius * std::sin(angle))));
  }
  return outline;
}

}  // namespace

void MeasureCircles(QSize pictureSize, BenchTable &table, int runs) {
  const std::vector<FlatCircle> circles = MakeCircles(pictureSize);
  TBitmap bitmap;
  bitmap.SetSize(pictureSize.width(), pictureSize.height());
  TCanvas canvas(&bitmap);
  canvas.Brush().SetColor(RGB(192, 192, 192));
  const auto timed = [&](const auto &draw) {
    return MillisecondsPerSecond * SecondsOf([&] {
             for (const FlatCircle &circle : circles) draw(circle);
           });
  };
  const auto ours = [&] {
    return timed([&](const FlatCircle &circle) { canvas.Circle(circle.centre.x(), circle.centre.y(), circle.radius); });
  };
  const auto asPolygons = [&] { return timed([&](const FlatCircle &circle) { canvas.Polygon(OutlineOf(circle)); }); };
  QImage picture(pictureSize, QImage::Format_RGB32);
  const auto byPainter = [&] {
    QPainter painter(&picture);
    painter.setBrush(Qt::lightGray);
    return timed([&](const FlatCircle &circle) { painter.drawEllipse(circle.centre, circle.radius, circle.radius); });
  };
  const auto measure = [&](const QString &title, const BenchSide &reference) {
    table.Measure({QStringLiteral("C picture of 100,000 circles, ") + title, QStringLiteral("ms"), ours, reference, {}},
                  runs);
  };
  measure(QStringLiteral("or by QPainter"), byPainter);
  measure(QStringLiteral("or as polygons"), asPolygons);
  canvas.Pen().SetMode(TPenMode::pmXor);
  measure(QStringLiteral("XOR, or as polygons"), asPolygons);
  canvas.Pen().SetStyle(TPenStyle::psDash);
  measure(QStringLiteral("XOR and dashed, or as polygons"), asPolygons);
}

}  // namespace tessera::bench
