// SPDX-License-Identifier: MIT
#include "TesseraSide.h"

#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSymbol.h>

#include <map>

namespace tessera::bench {
namespace {

constexpr int FilledCircle = 34;

TCustomMapObject *NewObject(TMapLayer &layer, FlatKind kind) {
  switch (kind) {
    case FlatKind::Ring:
      return layer.NewObject<TRegion>();
    case FlatKind::Line:
      return layer.NewObject<TPolyline>();
    case FlatKind::Point:
      break;
  }
  TSymbol *symbol = layer.NewObject<TSymbol>();
  symbol->SetShape(FilledCircle);
  return symbol;
}

TObjectStylePtr MakeStyle(const FlatShape &shape) {
  const TColor color = FromQColor(QColor::fromRgb(shape.color));
  TObjectStylePtr style(new TObjectStyle);
  style->pen.SetColor(shape.kind == FlatKind::Ring ? FromQColor(QColor::fromRgb(OutlineColor)) : color);
  style->brush.SetColor(color);
  style->font = TFont(QStringLiteral("MapInfo Symbol"), 8, color);
  return style;
}

}  // namespace

TesseraSide::TesseraSide(const FlatMap &map, QSize size) {
  m_control.resize(size);
  m_control.SetColor(clWhite);
  m_control.BeginUpdate();
  Fill(*m_control.GetLayers()->Add(QString(), QStringLiteral("map")), map);
  m_control.EndUpdate(false);
}

void TesseraSide::Fill(TMapLayer &layer, const FlatMap &map) {
  std::map<std::pair<FlatKind, QRgb>, TObjectStylePtr> styles;
  layer.ReserveObjects(map.Shapes().size());
  for (const FlatShape &shape : map.Shapes()) {
    TCustomMapObject *object = NewObject(layer, shape.kind);
    TObjectStylePtr &style = styles[{shape.kind, shape.color}];
    if (!style) style = MakeStyle(shape);
    object->SetStyle(style);
    const std::span<const FlatVertex> vertices = map.VerticesOf(shape);
    if (shape.kind == FlatKind::Point) {
      static_cast<TSymbol *>(object)->MoveTo(vertices.front().x, vertices.front().y);
      continue;
    }
    TMapPoints &points = object->GetParts().Add().GetPoints();
    points.Reserve(vertices.size());
    for (const FlatVertex &vertex : vertices) points.Add(vertex.x, vertex.y);
  }
}

void TesseraSide::Show(const BareView &view) {
  const double halfWidth = view.size.width() / 2.0 * view.unitsPerPx;
  const double halfHeight = view.size.height() / 2.0 * view.unitsPerPx;
  m_control.BeginUpdate();
  m_control.SetMinX(view.centre.x - halfWidth);
  m_control.SetMaxX(view.centre.x + halfWidth);
  m_control.SetMinY(view.centre.y - halfHeight);
  m_control.SetMaxY(view.centre.y + halfHeight);
  m_control.SetCenterX(view.centre.x);
  m_control.SetCenterY(view.centre.y);
  m_control.EndUpdate(true);
}

QImage TesseraSide::Picture() const {
  TBitmap bitmap;
  m_control.AssignToBitmap(bitmap);
  return bitmap.GetImage();
}

}  // namespace tessera::bench
