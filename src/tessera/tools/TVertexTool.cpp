// SPDX-License-Identifier: MIT
#include <tessera/base/detail/FarPixels.h>
#include <tessera/geometry/detail/EdgesNear.h>
#include <tessera/map/TTessera.h>
#include <tessera/tools/TVertexTool.h>
#include <tessera/tools/detail/StandingFigure.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tessera {
namespace {

constexpr int HandlePx = 3;  // from the middle of a handle
constexpr int ActivePx = 5;
constexpr int PressPx = 5;  // how far from there a press still means it

TBounds BoxAround(const TMapPoint &at, double reach) {
  return {at.X - reach, at.Y - reach, at.X + reach, at.Y + reach};
}

double MapUnitsOf(int px, const TViewport &viewport) {
  return double(std::fabs(px / viewport.GetScale().Kx));
}

/// Calls `visit` with the place and the point of each vertex in a box, and of some others.
template <typename Visit>
void ForVerticesNear(const TCustomMapObject &object, const TBounds &box, Visit visit) {
  const auto parts = object.GetParts().Items();
  for (std::size_t part = 0; part < parts.size(); ++part) {
    const detail::VertexRuns runs = parts[part].GetPoints().GetRuns();
    const auto points = runs.Points();
    const auto place = [&](std::size_t vertex) { return TVertexPlace{int(part), int(vertex)}; };
    if (points.size() == 1) visit(place(0), points[0]);
    detail::ForEdgesNear(runs, box, [&](std::size_t first) {
      visit(place(first), points[first]);
      visit(place(first + 1), points[first + 1]);
    });
  }
}

/// Which cells of the size of a handle are taken already, in a view.
class HandleCells {
 public:
  explicit HandleCells(const TViewport &viewport)
      : m_columns(viewport.ClientWidth / SizePx + 1),
        m_taken(std::size_t(m_columns) * std::size_t(viewport.ClientHeight / SizePx + 1)) {}

  /// False for a pixel whose cell was taken before, or that lies outside the view.
  bool Take(const TPoint &pixel) {
    const int column = pixel.x() / SizePx;
    const std::size_t cell = std::size_t(pixel.y() / SizePx) * std::size_t(m_columns) + std::size_t(column);
    if (pixel.x() < 0 || pixel.y() < 0 || column >= m_columns || cell >= m_taken.size()) return false;
    return !std::exchange(m_taken[cell], char(true));
  }

 private:
  static constexpr int SizePx = 2 * HandlePx + 1;

  int m_columns;
  std::vector<char> m_taken;
};

}  // namespace

TVertexTool::TVertexTool(QObject *parent)
    : TCustomPressMoveAndReleaseTool(parent),
      m_handles(std::make_unique<detail::StandingFigure>([this] { UpdateHandles(); }, [this] { DrawHandles(); })) {
  SetDisplayName(QStringLiteral("Vertex Tool"));
}

TVertexTool::~TVertexTool() = default;

bool TVertexTool::GetEnabled() const {
  return TCustomPressMoveAndReleaseTool::GetEnabled() && GetEditableLayer() != nullptr;
}

void TVertexTool::Init() {
  TCustomPressMoveAndReleaseTool::Init();
  if (GetTessera()) m_handles->StandOn(*GetTessera());
}

void TVertexTool::Done() {
  m_handles->Leave();
  m_active.reset();
  TCustomPressMoveAndReleaseTool::Done();
}

TCustomMapObject *TVertexTool::GetEdited() const {
  const TMapLayer *layer = GetEditableLayer();
  if (layer == nullptr) return nullptr;
  const auto selected = GetTessera()->GetSelection()->Items();
  const auto isEditable = [layer](const TCustomMapObject *object) {
    return object->GetObjectLayer() == layer && TMapEdits::HasFreeVertices(*object);
  };
  const auto last = std::find_if(selected.rbegin(), selected.rend(), isEditable);
  return last == selected.rend() ? nullptr : *last;
}

bool TVertexTool::IsSnapTarget(const TCustomMapObject &object) const {
  return !GetInGesture() || &object != GetEdited();
}

std::optional<TVertexPlace> TVertexTool::GetActiveVertex() const {
  const TCustomMapObject *object = GetEdited();
  if (!m_active || object == nullptr || object != m_object.Get()) return std::nullopt;
  const auto parts = object->GetParts().Items();
  const bool isThere = std::size_t(m_active->part) < parts.size() &&
                       m_active->vertex < parts[std::size_t(m_active->part)].GetPoints().GetCount();
  return isThere ? m_active : std::nullopt;
}

void TVertexTool::Activate(const std::optional<TVertexPlace> &place) {
  m_object = THandle<TCustomMapObject>(GetEdited());
  m_active = place;
  m_handles->Refresh();
}

void TVertexTool::UpdateHandles() {
  m_places.clear();
  m_activePlace.reset();
  const TCustomMapObject *object = GetEdited();
  if (object == nullptr) return;
  const TViewport &viewport = GetTessera()->GetViewport();
  if (const auto active = GetActiveVertex()) {
    const TMapPoint &at = object->GetParts().GetItems(active->part).GetPoints().GetPoint(active->vertex);
    m_activePlace = viewport.MapToScreen(at.X, at.Y);
  }
  HandleCells cells(viewport);
  const TBounds view = viewport.GetViewBounds();
  ForVerticesNear(*object, view, [&](const TVertexPlace &, const TMapPoint &at) {
    if (!view.ContainsPoint(at.X, at.Y)) return;
    const TPoint pixel = viewport.MapToScreen(at.X, at.Y);
    if (cells.Take(pixel)) m_places.push_back(pixel);
  });
}

void TVertexTool::DrawHandles() {
  detail::DrawInverted(*GetTessera(), [this](TCanvas &canvas) {
    const auto draw = [&canvas](const TPoint &at, int halfPx) {
      const TPoint from = detail::MovedBy(at, -halfPx, -halfPx);
      const TPoint to = detail::MovedBy(at, halfPx + 1, halfPx + 1);
      canvas.Rectangle(from.x(), from.y(), to.x(), to.y());
    };
    for (const TPoint &place : m_places) draw(place, HandlePx);
    if (m_activePlace) draw(*m_activePlace, ActivePx);
  });
}

std::optional<TVertexTool::Hit> TVertexTool::FindHit(const TCustomMapObject &object, const TMapPoint &at,
                                                     double reach) {
  std::optional<Hit> hit;
  double nearest = reach * reach;
  const auto offer = [&](const TMapPoint &place, const Hit &offered) {
    const double square = detail::SquareOfDistance(place, at);
    if (!(square <= nearest) || (hit && square == nearest)) return;
    nearest = square;
    hit = offered;
  };
  const TBounds box = BoxAround(at, reach);
  ForVerticesNear(object, box, [&](const TVertexPlace &place, const TMapPoint &point) { offer(point, {place, true}); });
  if (hit) return hit;
  const auto parts = object.GetParts().Items();
  for (std::size_t part = 0; part < parts.size(); ++part) {
    const detail::VertexRuns runs = parts[part].GetPoints().GetRuns();
    detail::ForEdgesNear(runs, box, [&](std::size_t first) {
      const TMapPoint &from = runs.Points()[first];
      const TMapPoint &to = runs.Points()[first + 1];
      offer(detail::NearestOnEdge(from, to, at), {{int(part), int(first) + 1}, false});
    });
  }
  return hit;
}

TCustomMapObject *TVertexTool::FindObject(const TMapPoint &at, double reach) const {
  const TMapLayer *layer = GetEditableLayer();
  if (layer == nullptr) return nullptr;
  TCardinalArray near;
  layer->GetIdsNear(at, PressPx, near);
  TCustomMapObject *around = nullptr;
  const auto ids = near.Ids();
  for (std::size_t i = ids.size(); i-- > 0;) {
    TCustomMapObject *object = layer->GetObjects(int(ids[i]));
    if (!TMapEdits::HasFreeVertices(*object)) continue;
    if (FindHit(*object, at, reach)) return object;
    if (around == nullptr && object->ContainsPoint(at.X, at.Y)) around = object;
  }
  return around;
}

void TVertexTool::MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) {
  if (button != Qt::LeftButton || GetTessera() == nullptr) return;
  EndGesture();
  const TViewport &viewport = GetTessera()->GetViewport();
  const TMapPoint at = viewport.ScreenToMap(x, y);
  const double reach = MapUnitsOf(PressPx, viewport);
  TCustomMapObject *edited = GetEdited();
  const auto hit = edited ? FindHit(*edited, at, reach) : std::nullopt;
  if (!hit) {
    TCustomMapObject *found = FindObject(at, reach);
    const QPointer<TVertexTool> self(this);
    if (found) found->Select();
    if (self) Activate(std::nullopt);
  } else if (!shift.testFlag(ssCtrl)) {
    BeginDrag(*edited, *hit, x, y);
  } else if (hit->isVertex) {
    DeleteVertex(hit->place);
  }
}

void TVertexTool::BeginDrag(TCustomMapObject &object, const Hit &hit, int x, int y) {
  const auto points = object.GetParts().GetItems(hit.place.part).GetPoints().Points();
  const auto at = std::size_t(hit.place.vertex);
  const bool isRing = TMapEdits::IsRing(object, hit.place.part);
  m_before.clear();
  m_behind.clear();
  if (at > 0) m_before = {points[at - 1]};
  if (at == 0 && isRing) m_before = {points[points.size() - 2]};
  const std::size_t behind = at + (hit.isVertex ? 1 : 0);
  if (behind < points.size()) m_behind = {points[behind]};
  if (behind == points.size() && isRing) m_behind = {points[1]};
  m_dragged = hit;
  Activate(hit.isVertex ? std::optional(hit.place) : std::nullopt);
  TCustomPressMoveAndReleaseTool::MouseDown(Qt::LeftButton, {}, x, y);
}

void TVertexTool::Draw() {
  if (GetTessera() == nullptr) return;
  const TViewport &viewport = GetTessera()->GetViewport();
  std::vector<TPoint> line;
  for (const TMapPoint &point : m_before) line.push_back(viewport.MapToScreen(point.X, point.Y));
  line.emplace_back(X2, Y2);
  for (const TMapPoint &point : m_behind) line.push_back(viewport.MapToScreen(point.X, point.Y));
  DrawInverted([&line](TCanvas &canvas) { canvas.Polyline(line); });
}

bool TVertexTool::CreateObject() {
  TCustomMapObject *object = GetEdited();
  if (object == nullptr || object != m_object.Get() || (X1 == X2 && Y1 == Y2)) return false;
  const TMapPoint to = GetReleasePoint();
  const auto parts = object->GetParts().Items();
  const auto &[place, isVertex] = m_dragged;
  if (std::size_t(place.part) >= parts.size()) return false;
  if (place.vertex >= parts[std::size_t(place.part)].GetPoints().GetCount()) return false;
  const QPointer<TVertexTool> self(this);
  if (isVertex) {
    TMapEdits(GetTessera()).MoveVertex(*object, place, to);
  } else {
    TMapEdits(GetTessera()).InsertVertex(*object, place, to);
  }
  if (self) Activate(place);
  return false;
}

void TVertexTool::DeleteVertex(const TVertexPlace &place) {
  const QPointer<TVertexTool> self(this);
  TMapEdits(GetTessera()).DeleteVertex(*GetEdited(), place);
  if (self) Activate(TVertexPlace{place.part, std::max(place.vertex - 1, 0)});
}

void TVertexTool::KeyDown(int &key, TShiftState shift) {
  TCustomPressMoveAndReleaseTool::KeyDown(key, shift);
  const auto active = GetActiveVertex();
  if (key != Qt::Key_Delete || !active || GetInGesture()) return;
  // Not the object, even where the vertex has to stay.
  key = 0;
  DeleteVertex(*active);
}

}  // namespace tessera
