// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/tools/TMeasureTool.h>

namespace tessera {
namespace {

constexpr std::size_t FewestCorners = 3;

}  // namespace

TMeasureTool::TMeasureTool(QObject *parent) : TCustomMultiPointTool(parent) {
  SetDisplayName(QStringLiteral("Measure Tool"));
  connect(this, &TCustomMultiPointTool::OnOutline, this, [this] { Measure(GetMapOutline()); });
}

bool TMeasureTool::GetEnabled() const {
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): it makes no object, so it needs no layer to put one into
  return TCustomGestureTool::GetEnabled();
}

void TMeasureTool::Draw() {
  DrawInverted([line = GetOutline()](TCanvas &canvas) { canvas.Polyline(line); });
}

bool TMeasureTool::CreateObject() {
  Measure(TakePoints());
  return false;
}

void TMeasureTool::Measure(const std::vector<TMapPoint> &line) {
  m_length = m_measure.Length(line);
  m_area = line.size() < FewestCorners ? 0 : m_measure.Area(line);
  const TTessera *map = GetTessera();
  Q_EMIT OnMeasure(this, TextOfOutline(line, m_measure, true, map ? map->locale() : QLocale()));
}

QString TextOfOutline(std::span<const TMapPoint> line, const TMapMeasure &measure, bool hasArea,
                      const QLocale &locale) {
  QString length = measure.LengthText(measure.Length(line), locale);
  if (!hasArea || line.size() < FewestCorners) return length;
  return length + QStringLiteral(", ") + measure.AreaText(measure.Area(line), locale);
}

}  // namespace tessera
