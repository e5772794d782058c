// SPDX-License-Identifier: MIT
#include "Sheet.h"

#include <tessera/objects/TPolyline.h>

#include <algorithm>
#include <cmath>

namespace tessera::gallery {
namespace {

/// The nearest point on the grid of the layout's pixels, where a text's box has exactly the size of its text.
TMapPoint OnPixel(double x, double y) {
  constexpr double PxPerUnit = 10;
  return {std::round(x * PxPerUnit) / PxPerUnit, std::round(y * PxPerUnit) / PxPerUnit};
}

}  // namespace

TPen PenOf(TColor color, int widthPx, TPenStyle style) {
  TPen pen;
  pen.SetColor(color);
  pen.SetWidth(widthPx);
  pen.SetStyle(style);
  return pen;
}

TBrush BrushOf(TColor color, TBrushStyle style) {
  TBrush brush;
  brush.SetColor(color);
  brush.SetStyle(style);
  return brush;
}

TFont FontOf(int sizePt, TColor color, TFontStyles style) {
  TFont font(QStringLiteral("Arial"), sizePt, color);
  font.SetStyle(style);
  return font;
}

TFont SmallFont() {
  return FontOf(8, Grey);
}

TSheet::TSheet(TTessera &map)
    : m_map(map), m_headings(NewLayer(QStringLiteral("Headings"))), m_captions(NewLayer(QStringLiteral("Captions"))) {
  map.resize(LayoutSizePx);
  ShowSheet(map);
  map.SetColor(Paper);
}

TMapLayer &TSheet::NewLayer(const QString &name) {
  return *m_map.GetLayers()->Add(QString(), name);
}

void TSheet::AddTitle(const QString &title, const QString &subtitle) {
  constexpr double Left = 3;
  constexpr double Baseline = 82.6;
  const TText &text = AddText(m_headings, {Left, Baseline}, title, FontOf(28, Ink, TFontStyle::fsBold));
  AddText(m_headings, {Left + text.GetWidth() + 1.6, Baseline + 0.7}, subtitle, FontOf(12, Grey));
}

void TSheet::AddHeading(const TBounds &panel, const QString &heading, const QString &classes) {
  auto *rule = m_headings.NewObject<TPolyline>();
  rule->SetPen(PenOf(Ink, 2));
  AddPart(*rule, std::vector<TMapPoint>{{panel.MinX, panel.MaxY}, {panel.MaxX, panel.MaxY}});
  const double baseline = panel.MaxY - 2.4;
  GiveRoom(AddText(m_headings, {panel.MinX, baseline}, heading, FontOf(11, Ink, TFontStyle::fsBold)));
  GiveRoom(AddText(m_headings, {panel.MaxX, baseline}, classes, FontOf(9, Red), TAlign::Right));
}

void TSheet::AddCaption(const TMapPoint &at, const QString &text, TAlign align) {
  GiveRoom(AddText(m_captions, at, text, SmallFont(), align));
}

TText &AddText(TMapLayer &layer, const TMapPoint &at, const QString &text, const TFont &font, TAlign align) {
  auto *object = layer.NewObject<TText>();
  object->SetFont(font);
  object->SetText(text);
  object->AutoSizeText();
  const double shift = align == TAlign::Left     ? 0
                       : align == TAlign::Middle ? object->GetWidth() / 2
                                                 : object->GetWidth();
  const TMapPoint anchor = OnPixel(at.X - shift, at.Y);
  object->MoveTo(anchor.X, anchor.Y);
  return *object;
}

void GiveRoom(TText &text) {
  text.SetWidth(1.1 * text.GetWidth());
}

void AddPart(TCustomMapObject &object, std::span<const TMapPoint> points) {
  TMapPoints &part = object.GetParts().Add().GetPoints();
  for (const TMapPoint &point : points) part.Add(point);
}

void SetCorners(TRectangle &rectangle, const TBounds &box) {
  rectangle.SetX0(box.MinX);
  rectangle.SetY0(box.MinY);
  rectangle.SetX1(box.MaxX);
  rectangle.SetY1(box.MaxY);
}

std::vector<TMapPoint> RingOf(const TBounds &box) {
  return {{box.MinX, box.MinY}, {box.MaxX, box.MinY}, {box.MaxX, box.MaxY}, {box.MinX, box.MaxY}, {box.MinX, box.MinY}};
}

void ShowSheet(TTessera &map) {
  // At zoom 1 the width of the extent fills the control; a control that is too low for the sheet shows more of it.
  const double width = std::max(Sheet.MaxX, Sheet.MaxY * map.width() / map.height());
  const double height = width * map.height() / map.width();
  map.SetMinX((Sheet.MaxX - width) / 2);
  map.SetMaxX((Sheet.MaxX + width) / 2);
  map.SetMinY((Sheet.MaxY - height) / 2);
  map.SetMaxY((Sheet.MaxY + height) / 2);
  map.SetCenterX(Sheet.MaxX / 2);
  map.SetCenterY(Sheet.MaxY / 2);
  map.SetZoom(1);
}

}  // namespace tessera::gallery
