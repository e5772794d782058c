// SPDX-License-Identifier: MIT
#include <apps/common/VectorPicture.h>
#include <tessera/graphics/LetterPaths.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSprite.h>
#include <tessera/objects/TText.h>

#include <QPainter>
#include <QPainterPath>

#include <utility>

namespace tessera::apps {
namespace {

/// The point that an object of the kinds with one stands on.
TMapPoint AnchorOf(const TCustomMapObject &object) {
  const auto parts = object.GetParts().Items();
  if (parts.empty() || parts[0].GetPoints().GetCount() == 0) return {};
  return parts[0].GetPoints().GetPoint(0);
}

class VectorDrawing {
 public:
  VectorDrawing(const TViewport &viewport, QPainter &painter)
      : m_painter(painter),
        m_view(viewport.GetViewBounds()),
        m_scale(double(viewport.GetScale().Kx)),
        m_left(m_view.MinX),
        m_top(m_view.MaxY) {}

  void Draw(const TMapLayer &layer) {
    TCardinalArray ids;
    layer.GetAllIdsInRect({m_view.MinX, m_view.MaxX, m_view.MinY, m_view.MaxY}, ids);
    for (int i = 0; i < ids.GetCount(); ++i) {
      const TCustomMapObject &object = *layer.GetObjects(int(ids.GetItem(i)));
      DrawObject(object);
      if (layer.GetAutoLabel()) DrawLabel(object, layer);
    }
  }

 private:
  [[nodiscard]] QPointF At(double x, double y) const { return {(x - m_left) * m_scale, (m_top - y) * m_scale}; }
  [[nodiscard]] QPointF At(const TMapPoint &point) const { return At(point.X, point.Y); }

  [[nodiscard]] QPainterPath PathOf(const TCustomMapObject &object) const {
    QPainterPath path;
    for (const TPart &part : object.GetParts().Items()) {
      const auto points = part.GetPoints().Points();
      if (points.empty()) continue;
      path.moveTo(At(points.front()));
      for (const TMapPoint &point : points.subspan(1)) path.lineTo(At(point));
    }
    return path;
  }

  /// The area with the object's brush, on its background colour if it has one, and the line with its pen.
  void DrawFigure(const TCustomMapObject &object, const QPainterPath &path, bool isArea) {
    if (isArea) {
      if (object.GetUseBGColor()) m_painter.fillPath(path, ToQColor(object.GetBGColor()));
      m_painter.fillPath(path, object.GetBrush().ToQBrush());
    }
    m_painter.strokePath(path, object.GetPen().ToQPen());
  }

  void DrawObject(const TCustomMapObject &object) {
    if (const auto *text = dynamic_cast<const TText *>(&object)) return DrawText(*text);
    if (const auto *symbol = dynamic_cast<const TSymbol *>(&object)) return DrawSymbol(*symbol);
    if (const auto *sprite = dynamic_cast<const TSprite *>(&object)) return DrawSprite(*sprite);
    QPainterPath path;
    if (const auto *circle = dynamic_cast<const TCircle *>(&object)) {
      const double radius = circle->GetRadius() * m_scale;
      path.addEllipse(At(AnchorOf(object)), radius, radius);
    } else if (const auto *rectangle = dynamic_cast<const TRectangle *>(&object)) {
      const TBounds corners = rectangle->GetCorners();
      path.addRect(QRectF(At(corners.MinX, corners.MaxY), At(corners.MaxX, corners.MinY)));
    } else {
      path = PathOf(object);
    }
    DrawFigure(object, path, dynamic_cast<const TPolyline *>(&object) == nullptr);
  }

  void DrawText(const TText &text) {
    if (text.GetFont().GetSize() < text.GetMinShowTextSize()) return;
    const TMapPoint anchor = AnchorOf(text);
    m_painter.save();
    m_painter.translate(At(anchor.X, anchor.Y + text.GetHeight()));
    m_painter.rotate(-text.GetAngle());
    if (text.GetUseBGColor()) {
      m_painter.fillRect(QRectF(0, 0, text.GetWidth() * m_scale, text.GetHeight() * m_scale),
                         ToQColor(text.GetBGColor()));
    }
    FillLetters(m_painter, text.GetText(), text.GetFont());
    m_painter.restore();
  }

  void DrawSymbol(const TSymbol &symbol) {
    if (symbol.GetShape() == TSymbol::NoShape) return;
    FillSymbol(m_painter, symbol.GetShape(), symbol.GetFont(), At(AnchorOf(symbol)));
  }

  void DrawSprite(const TSprite &sprite) {
    const QImage &image = sprite.GetGlyph().GetImage();
    m_painter.drawImage(At(AnchorOf(sprite)) - QPointF(image.width(), image.height()) / 2, image);
  }

  void DrawLabel(const TCustomMapObject &object, const TMapLayer &layer) {
    const int field = layer.GetLabelFieldIndex();
    if (field < 0 || field >= layer.GetFieldCount()) return;
    const TBounds bounds = object.GetBounds();
    FillLettersCentred(m_painter, object.GetFields().GetFields(field).GetAsString(), layer.GetAutoLabelFont(),
                       At((bounds.MinX + bounds.MaxX) / 2, (bounds.MinY + bounds.MaxY) / 2));
  }

  QPainter &m_painter;
  TBounds m_view;
  double m_scale;
  double m_left;
  double m_top;
};

}  // namespace

void DrawAsVectors(TTessera &map, QPainter &painter) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setClipRect(map.rect());
  painter.fillRect(map.rect(), map.GetQColor());
  VectorDrawing drawing(map.GetViewport(), painter);
  for (const auto &layer : map.GetLayers()->Items()) {
    if (layer->GetVisible() && layer->ValidZoom()) drawing.Draw(*layer);
  }
  map.GetPainting()->Decorate(painter, map.rect());
  painter.restore();
}

}  // namespace tessera::apps
