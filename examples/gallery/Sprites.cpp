// SPDX-License-Identifier: MIT
#include "Themes.h"

#include <tessera/objects/TSprite.h>

#include <QPainter>
#include <QPainterPath>

namespace tessera::gallery {
namespace {

constexpr TBounds Panel{34.5, 3, 45.5, 22};

/// A pin of 30 x 40 client pixels, drawn at twice the resolution for screens that are that fine. What is see-through in
/// a picture stays so on the map.
TBitmap Pin(TColor color) {
  constexpr int Ratio = 2;
  QImage image(QSize(30, 40) * Ratio, QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(Ratio);
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath outline(QPointF(15, 39));
  outline.cubicTo(12.5, 29, 2.5, 24, 2.5, 14.5);
  outline.arcTo(QRectF(2.5, 2, 25, 25), 180, -180);
  outline.cubicTo(27.5, 24, 17.5, 29, 15, 39);
  painter.setPen(QPen(ToQColor(Ink), 1.4));
  painter.setBrush(ToQColor(color));
  painter.drawPath(outline);
  painter.setBrush(ToQColor(Paper));
  painter.drawEllipse(QPointF(15, 14.5), 5, 5);
  painter.end();
  return TBitmap(image);
}

}  // namespace

void AddSprites(TSheet &sheet) {
  sheet.AddHeading(Panel, QStringLiteral("Sprites"), QStringLiteral("TSprite"));
  TMapLayer &layer = sheet.NewLayer(QStringLiteral("Sprites"));
  double y = 16.2;
  for (const TColor color : {Red, Blue, Green}) {
    auto *sprite = layer.NewObject<TSprite>();
    sprite->SetGlyph(Pin(color));
    sprite->Move(40, y);
    y -= 4.4;
  }
  sheet.AddCaption({40, 3.2}, QStringLiteral("pictures that move"), TAlign::Middle);
}

}  // namespace tessera::gallery
