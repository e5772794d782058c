// SPDX-License-Identifier: MIT
#include <tessera/base/detail/FarPixels.h>
#include <tessera/editing/detail/Snapper.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/map/TMapToolsManager.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/SnapMark.h>

#include <cmath>

namespace tessera::detail {

std::optional<TMapPoint> FindSnapPlace(const TTessera &map, const TCustomMapTool &tool, int x, int y) {
  const TMapSnapping &snapping = *map.GetSnapping();
  const SnapRules rules{.toVertices = snapping.GetToVertices(),
                        .toIntersections = snapping.GetToIntersections(),
                        .toEdges = snapping.GetToEdges(),
                        .gridStep = snapping.GetGridStep()};
  if (!rules.AreAny() || !tool.GetSnaps()) return std::nullopt;
  const TViewport &viewport = map.GetViewport();
  const auto reach = double(std::fabs(snapping.GetTolerancePx() / viewport.GetScale().Kx));
  const auto isTarget = [&tool](const TCustomMapObject &object) { return tool.IsSnapTarget(object); };
  const auto place = FindSnapPlace(*map.GetLayers(), viewport.ScreenToMap(x, y), reach, rules, isTarget);
  return place ? std::optional(place->point) : std::nullopt;
}

SnapMark::SnapMark(TTessera &map)
    : m_map(map),
      m_figure([this] { Draw(); }),
      m_repaints(
          [this] {
            m_figure.Forget();
            Hide();
          },
          [] {}) {
  QObject::connect(&map, &TTessera::OnMapToolChanged, &m_repaints, [this] { Hide(); });
}

void SnapMark::Follow(int x, int y) {
  Hide();
  const TCustomMapTool *tool = m_map.GetMapToolsManager()->GetActiveMapTool();
  const auto place = tool ? FindSnapPlace(m_map, *tool, x, y) : std::nullopt;
  if (!place) return;
  m_at = m_map.GetViewport().MapToScreen(place->X, place->Y);
  m_repaints.Begin(m_map, Qt::NoButton);
  m_figure.Show(m_map);
}

void SnapMark::Hide() {
  m_repaints.End();
  m_figure.Hide(m_map);
  m_at.reset();
}

void SnapMark::Draw() {
  constexpr int HalfPx = 5;
  if (!m_at) return;
  DrawInverted(m_map, [this](TCanvas &canvas) {
    const QPoint from = MovedBy(*m_at, -HalfPx, -HalfPx);
    const QPoint to = MovedBy(*m_at, HalfPx + 1, HalfPx + 1);
    canvas.Ellipse(from.x(), from.y(), to.x(), to.y());
  });
}

}  // namespace tessera::detail
