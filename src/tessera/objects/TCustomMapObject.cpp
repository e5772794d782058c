// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/base/THandle.h>
#include <tessera/base/detail/FarPixels.h>
#include <tessera/base/detail/Pool.h>
#include <tessera/geometry/PolySplitter.h>
#include <tessera/geometry/detail/VertexRuns.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/TCustomMapObject.h>
#include <tessera/objects/TMapObjectsList.h>
#include <tessera/objects/detail/RectTests.h>

#include <algorithm>
#include <cstddef>

namespace tessera {
namespace {

/// The style of an object that was not given one yet; all such objects share it.
const TObjectStylePtr &InitialStyle() {
  static const TObjectStylePtr style(new TObjectStyle);
  return style;
}

/// What a highlight's colours are XORed with, so that it stands out in blue.
constexpr TColor HighlightMask = 0x800000;

void FreeMemory(void *memory, bool isPooled) {
  if (isPooled) {
    detail::Pool::Release(memory);
  } else {
    ::operator delete(memory);
  }
}

template <typename Test>
bool AnyVertex(const TCustomMapObject &object, Test test) {
  const auto parts = object.GetParts().Items();
  return std::any_of(parts.begin(), parts.end(), [&](const TPart &part) {
    const auto points = part.GetPoints().Points();
    return std::any_of(points.begin(), points.end(), test);
  });
}

/// Puts `move` of each vertex in its place, and updates the bounds.
template <typename Move>
void MoveVertices(TCustomMapObject &object, Move move) {
  TCustomMapObject moved;
  for (const TPart &part : std::as_const(object).GetParts().Items()) {
    TMapPoints &points = moved.GetParts().Add().GetPoints();
    points.Reserve(std::size_t(part.GetPoints().GetCount()));
    for (const TMapPoint &point : part.GetPoints().Points()) points.Add(move(point));
  }
  object.SetParts(moved.GetParts());
  object.UpdateBounds();
}

}  // namespace

TCustomMapObject::TCustomMapObject() : m_style(InitialStyle()) {}

TCustomMapObject::~TCustomMapObject() {
  if (m_isInLayer) m_place.layer->ForgetObject(*this);
  Detach();
}

std::unique_ptr<TCustomMapObject> TCustomMapObject::Make(std::size_t size,
                                                         TCustomMapObject *(*construct)(void *place)) {
  void *pooled = detail::Pool::Take(size, detail::Pool::Shelf::Figures);
  void *memory = pooled ? pooled : ::operator new(size);
  try {
    std::unique_ptr<TCustomMapObject> object(construct(memory));
    object->m_isPooled = pooled != nullptr;
    return object;
  } catch (...) {
    FreeMemory(memory, pooled != nullptr);
    throw;
  }
}

void TCustomMapObject::operator delete(TCustomMapObject *object, std::destroying_delete_t) {
  const bool isPooled = object->m_isPooled;
  FreeMemory(End(object), isPooled);
}

void TCustomMapObject::Detach() {
  TMapHost *map = GetMapHost();
  if (map && !map->IsBeingDestroyed()) {
    map->GetSelection()->Forget(*this);
    map->GetDisplayed()->Remove(this);
  }
  if (map && !m_isInLayer) map->m_looseObjects.erase(this);
  m_isInLayer = false;
  m_isExtentKnown = false;
  ForgetMap();
}

void TCustomMapObject::SetMap(TMapHost *map) {
  if (m_isInLayer || m_place.map == map) return;
  Detach();
  if (map) map->m_looseObjects.insert(this);
  m_place.map = map;
}

void TCustomMapObject::SetLayer(TObjectLayer *layer) {
  if (GetObjectLayer() == layer) return;
  TMapHost *map = GetMapHost();
  if (map && !m_isInLayer) map->m_looseObjects.erase(this);
  m_isExtentKnown = false;
  m_isInLayer = layer != nullptr;
  m_place.layer = layer;
  if (layer == nullptr) SetMap(map);
}

void TCustomMapObject::BeforeDestruction() {
  AnnounceEnd();
}

void TCustomMapObject::AnnounceEnd() {
  const auto isOnMap = [this] { return GetMapHost() && !GetMapHost()->IsBeingDestroyed(); };
  if (m_isEnding || !isOnMap()) return;
  m_isEnding = true;
  const THandle<TCustomMapObject> self(this);
  AllSteps steps;
  const auto step = [&](auto tell) {
    if (self && isOnMap()) steps.Try([&] { tell(*GetMapHost()); });
  };
  step([this](TMapHost &map) { map.GetSelection()->Leave(*this); });
  step([this](TMapHost &map) { map.GetDisplayed()->Remove(this); });
  step([this](TMapHost &map) { map.FireDeleteObject(*this); });
  step([this](TMapHost &map) { map.TraceMapEvent(mdlRemoveObject, this); });
  step([](TMapHost &map) { map.DoUpdate(true); });
  if (self) m_isEnding = false;
  steps.Rethrow();
}

std::unique_ptr<TCustomMapObject> TCustomMapObject::Clone() const {
  return CloneInto(std::make_unique<TCustomMapObject>());
}

void TCustomMapObject::CopyCommonTo(TCustomMapObject &copy) const {
  copy.m_parts.Assign(m_parts);
  copy.m_fields = m_fields;
  copy.m_style = m_style;
  copy.m_tag = m_tag;
}

void TCustomMapObject::SetStyle(const TObjectStylePtr &style) {
  m_style = style;
  NoteChange(mdlObjectStyleChanged);
}

TCustomMapObject &TCustomMapObject::Of(TParts &parts) {
  // The parts lie in the object, and nowhere else: only an object makes them. A pointer back would cost a million
  // points eight megabytes.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Winvalid-offsetof"
  constexpr std::size_t Offset = offsetof(TCustomMapObject, m_parts);
#pragma GCC diagnostic pop
  return *reinterpret_cast<TCustomMapObject *>(reinterpret_cast<std::byte *>(&parts) - Offset);
}

void TCustomMapObject::UpdateBounds() {
  TBounds bounds = TBounds::Empty();
  for (const TPart &part : std::as_const(m_parts).Items()) {
    for (const TMapPoint &point : part.GetPoints().Points()) bounds.Widen(point.X, point.Y);
  }
  m_parts.SetBounds(bounds);
}

void TCustomMapObject::MoveBy(double dx, double dy) {
  MoveVertices(*this, [dx, dy](const TMapPoint &point) { return TMapPoint{point.X + dx, point.Y + dy}; });
}

void TCustomMapObject::Transform(const TMapTransform &transform) {
  MoveVertices(*this, transform);
}

void TCustomMapObject::Draw() {
  if (TMapHost *map = GetMapHost()) map->GetDisplayed()->Add(this);
}

void TCustomMapObject::DrawSelection() {
  if (GetMapHost() && GetMapHost()->GetViewFlags().ShowSelection) PrepareCanvasAtributes();
}

void TCustomMapObject::DrawFigureAsSelection() {
  if (GetMapHost() == nullptr || !GetMapHost()->GetViewFlags().ShowSelection) return;
  TCustomMapObject::DrawSelection();
  Draw();
}

bool TCustomMapObject::ContainsPoint(double x, double y) const {
  return GetBounds().ContainsPoint(x, y);
}

bool TCustomMapObject::Intersects(const TCustomMapObject &object) const {
  return AnyVertex(object, [this](const TMapPoint &point) { return ContainsPoint(point.X, point.Y); });
}

bool TCustomMapObject::Contains(const TCustomMapObject &object) const {
  return !AnyVertex(object, [this](const TMapPoint &point) { return !ContainsPoint(point.X, point.Y); });
}

bool TCustomMapObject::Within(const TCustomMapObject &object) const {
  return object.Contains(*this);
}

bool TCustomMapObject::IntersectsRect(double x1, double y1, double x2, double y2) const {
  return detail::BoundsMeetRect(GetBounds(), {x1, y1, x2, y2});
}

bool TCustomMapObject::WithinRect(double x1, double y1, double x2, double y2) const {
  const TBounds rect{x1, y1, x2, y2};
  return !AnyVertex(*this, [&rect](const TMapPoint &point) { return !rect.ContainsPoint(point.X, point.Y); });
}

bool TCustomMapObject::ContainsRect(double x1, double y1, double x2, double y2) const {
  return ContainsPoint(x1, y1) && ContainsPoint(x2, y1) && ContainsPoint(x2, y2) && ContainsPoint(x1, y2);
}

bool TCustomMapObject::ContainsSomeCorner(double x1, double y1, double x2, double y2) const {
  return ContainsPoint(x1, y1) || ContainsPoint(x2, y1) || ContainsPoint(x2, y2) || ContainsPoint(x1, y2);
}

std::optional<TBounds> TCustomMapObject::GetVertexExtent() const {
  // Vertices may have been moved out of the bounds, and bounds set without regard to the vertices.
  TBounds extent = GetBounds();
  if (extent.IsInverted()) return std::nullopt;
  bool hasVertices = false;
  for (const TPart &part : m_parts.Items()) {
    const auto bounds = part.GetPoints().GetRuns().GetBounds();
    if (!bounds) return std::nullopt;
    extent.Widen(*bounds);
    hasVertices |= part.GetPoints().GetCount() > 0;
  }
  return hasVertices ? std::optional(extent) : std::nullopt;
}

void TCustomMapObject::AssignToolsToCanvas(TCanvas &canvas) const {
  const TObjectStyle &style = *m_style;
  canvas.Pen() = style.pen;
  if (!(canvas.Brush() == style.brush)) canvas.Brush() = style.brush;
  if (!(canvas.Font() == style.font)) canvas.Font() = style.font;
}

void TCustomMapObject::PrepareCanvasAtributes() {
  TCanvas &canvas = Canvas();
  AssignToolsToCanvas(canvas);
  canvas.Brush().SetStyle(TBrushStyle::bsSolid);
  if (GetUseBGColor()) {
    canvas.Brush().SetColor(GetBGColor() ^ HighlightMask);
    canvas.Pen().SetColor(GetPen().GetColor());
  } else {
    canvas.Brush().SetColor(GetBrush().GetColor() ^ HighlightMask);
    canvas.Pen().SetColor(GetPen().GetColor() ^ HighlightMask);
  }
  canvas.Pen().SetMode(TPenMode::pmXor);
}

void TCustomMapObject::Paint() {
  constexpr int SelectedPenExtraPx = 2;
  const TMapHost *map = GetMapHost();
  if (map == nullptr) return;
  TCanvas &canvas = Canvas();
  AssignToolsToCanvas(canvas);
  if (!map->GetViewFlags().FastSelection && GetSelected()) {
    canvas.Brush().SetStyle(TBrushStyle::bsSolid);
    canvas.Brush().SetBitmap(map->GetSelectionPattern());
    canvas.Pen().SetMode(TPenMode::pmCopy);
    canvas.Pen().SetColor(clNavy);
    canvas.Pen().SetWidth(detail::Saturated(std::int64_t(canvas.Pen().GetWidth()) + SelectedPenExtraPx));
  }
  Draw();
  if (m_isInLayer && m_place.layer->GetAutoLabel()) DrawLabel(canvas);
}

void TCustomMapObject::DrawLabel(TCanvas &canvas) {
  const TObjectLayer &layer = *m_place.layer;
  const int field = layer.GetLabelFieldIndex();
  if (field < 0 || field >= layer.GetFieldCount()) return;
  const TViewport &viewport = GetMapHost()->GetViewport();
  const TBounds view = viewport.GetViewBounds();
  if (!WithinRect(view.MinX, view.MinY, view.MaxX, view.MaxY)) return;
  const auto parts = std::as_const(m_parts).Items();
  const bool isPoint = parts.size() == 1 && parts[0].GetPoints().GetCount() == 1;
  const TBounds bounds = GetBounds();
  const TPoint anchor = isPoint
                            ? GetPixels(0, 0)
                            : viewport.MapToScreen((bounds.MinX + bounds.MaxX) / 2, (bounds.MinY + bounds.MaxY) / 2);
  canvas.Brush().SetStyle(TBrushStyle::bsClear);
  canvas.Font() = layer.GetAutoLabelFont();
  const QString text = std::as_const(m_fields).GetFields(field).GetAsString();
  const QSize extent = canvas.TextExtent(text);
  const TPoint corner = detail::MovedBy(anchor, -(extent.width() / 2), -(extent.height() / 2));
  canvas.TextOut(corner.x(), corner.y(), text);
}

TPoint TCustomMapObject::GetPixels(int part, int point) const {
  const TMapPoint &vertex = m_parts.GetItems(part).GetPoints().GetPoint(point);
  return GetMapHost()->GetViewport().MapToScreen(vertex.X, vertex.Y);
}

bool TCustomMapObject::GetSelected() const {
  const TMapHost *map = GetMapHost();
  return map && map->GetSelection()->Holds(this);
}

void TCustomMapObject::SetSelected(bool /*value*/) {
  DrawSelection();
}

void TCustomMapObject::Select() {
  if (GetMapHost()) GetMapHost()->GetSelection()->SelectAlone(*this);
}

TPart &TCustomMapObject::FirstPart() {
  return m_parts.GetCount() == 0 ? m_parts.Add() : m_parts.GetFirst();
}

TMapPoint TCustomMapObject::GetAnchor() {
  TMapPoints &points = FirstPart().GetPoints();
  return points.GetCount() == 0 ? points.Add(0, 0) : points.GetPoint(0);
}

TMapPoint TCustomMapObject::GetAnchor() const {
  const auto parts = m_parts.Items();
  return parts.empty() || parts[0].GetPoints().GetCount() == 0 ? TMapPoint{0, 0} : parts[0].GetPoints().GetPoint(0);
}

void TCustomMapObject::SetAnchorX(double x) {
  TMapPoints &points = FirstPart().GetPoints();
  if (points.GetCount() == 0) {
    points.Add(x, 0);
  } else {
    points.SetPoint(0, {x, points.GetPoint(0).Y});
  }
}

void TCustomMapObject::SetAnchorY(double y) {
  TMapPoints &points = FirstPart().GetPoints();
  if (points.GetCount() == 0) {
    points.Add(0, y);
  } else {
    points.SetPoint(0, {points.GetPoint(0).X, y});
  }
}

void TCustomMapObject::MoveAnchor(double x, double y) {
  FirstPart();
  m_parts.MoveFirstTo(x, y);
}

}  // namespace tessera
