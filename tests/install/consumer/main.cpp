// SPDX-License-Identifier: MIT
#include <tessera/MapObjects.h>

#include <QApplication>
#include <QImage>

#include <cstdlib>
#include <utility>

/// Succeeds when a square in the middle of a map shows there, and nowhere else.
int main(int argc, char *argv[]) {
  const QApplication application(argc, argv);
  tessera::TTessera map;
  map.resize(200, 100);
  tessera::TMapLayer *layer = map.GetLayers()->Add(QString(), QStringLiteral("Squares"));
  auto *square = layer->NewObject<tessera::TRegion>();
  tessera::TBrush brush;
  brush.SetColor(tessera::clBlue);
  square->SetBrush(brush);
  tessera::TParts &parts = square->GetParts();
  tessera::TMapPoints &outline = parts.Add().GetPoints();
  for (const auto &[x, y] : {std::pair(-20.0, -20.0), {20.0, -20.0}, {20.0, 20.0}, {-20.0, 20.0}, {-20.0, -20.0}}) {
    outline.Add(x, y);
    parts.AddPoint(x, y, 0);
  }

  const QImage picture = map.grab().toImage();
  const bool isDrawn = picture.pixelColor(picture.width() / 2, picture.height() / 2) == QColor(Qt::blue);
  const bool isBounded = picture.pixelColor(2, 2) != QColor(Qt::blue);
  return isDrawn && isBounded ? EXIT_SUCCESS : EXIT_FAILURE;
}
