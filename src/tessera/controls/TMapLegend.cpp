// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/controls/TMapLegend.h>
#include <tessera/graphics/LetterPaths.h>

#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace tessera {
namespace {

constexpr int MarginPx = 4;
constexpr QSize SamplePx(24, 14);
constexpr int GapPx = 4;

int SamplesWidthPx(std::size_t count) {
  return int(count) * (SamplePx.width() + GapPx);
}

void PaintSymbol(QPainter &painter, const QRectF &rect, const TStyleSample &sample) {
  TFont font = sample.style.font;
  // A negative size is a height in pixels; large signs are shown as large as there is room.
  if (font.GetPixelSize() > SamplePx.height()) font.SetSize(-SamplePx.height());
  FillSymbol(painter, sample.shape, font, rect.center());
}

void PaintSample(QPainter &painter, const QRectF &rect, const TStyleSample &sample) {
  if (sample.kind == TStyleSample::skSymbol) return PaintSymbol(painter, rect, sample);
  painter.setPen(sample.style.pen.ToQPen());
  if (sample.kind == TStyleSample::skLine) {
    const double y = std::floor(rect.center().y());
    return painter.drawLine(QPointF(rect.left(), y), QPointF(rect.right(), y));
  }
  if (sample.style.useBGColor) painter.fillRect(rect, ToQColor(sample.style.bgColor));
  painter.setBrush(sample.style.brush.ToQBrush());
  painter.drawRect(rect);
}

bool ChangesObjects(TMapDataLinkEvent event) {
  return event == mdlAddObject || event == mdlRemoveObject || event == mdlObjectStyleChanged ||
         event == mdlObjectGeometryChanged;
}

}  // namespace

TMapLegend::TMapLegend(QWidget *parent) : TMapDecoration(dcTopRight, parent) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
  m_refresh.setSingleShot(true);
  connect(&m_refresh, &QTimer::timeout, this, [this] { GuardedCall([this] { Refresh(); }); });
}

void TMapLegend::SetMaxStyles(int count) {
  m_maxStyles = count;
  m_found.clear();
  Refresh();
}

const std::vector<TStyleSample> &TMapLegend::StylesOf(TMapLayer &layer) {
  // While a layer is being loaded its objects are not told one by one, so their number tells as well.
  Found &found = m_found[&layer];
  if (found.layer.Get() != &layer || found.objectCount != layer.GetObjectCount()) {
    found = {THandle<TMapLayer>(&layer), layer.GetObjectCount(), FindStyles(layer, m_maxStyles)};
  }
  return found.styles;
}

void TMapLegend::Refresh() {
  std::vector<TEntry> entries;
  if (const TTessera *map = GetMap()) {
    const auto layers = map->GetLayers()->Items();
    std::for_each(layers.rbegin(), layers.rend(), [&](const auto &layer) {
      if (layer->GetVisible() && layer->ValidZoom()) entries.push_back({layer->GetName(), StylesOf(*layer)});
    });
  }
  std::erase_if(m_found, [](const auto &entry) { return !entry.second.layer; });
  const QSize before = sizeHint();
  m_entries = std::move(entries);
  if (sizeHint() != before) updateGeometry();
  update();
}

void TMapLegend::MapChanged() {
  m_found.clear();
  TMapDecoration::MapChanged();
}

void TMapLegend::MapEvent(TMapDataLinkEvent event, TObject * /*sender*/) {
  if (event == mdlAddSelection || event == mdlDelSelection) return;
  if (ChangesObjects(event)) m_found.clear();
  m_refresh.start();
}

void TMapLegend::MapRepainted() {
  m_refresh.start();
}

QSize TMapLegend::sizeHint() const {
  const QFontMetricsF metrics(GetPixelFont());
  double width = 0;
  double height = 0;
  for (const TEntry &entry : m_entries) {
    width = std::max({width, metrics.horizontalAdvance(entry.name), double(SamplesWidthPx(entry.styles.size()))});
    height += metrics.height() + GapPx + (entry.styles.empty() ? 0 : SamplePx.height() + GapPx);
  }
  return {int(std::ceil(width)) + 2 * MarginPx, int(std::ceil(height)) + 2 * MarginPx};
}

void TMapLegend::PaintContent(QPainter &painter, const QRect &rect) const {
  const QFontMetricsF metrics(GetPixelFont());
  QPointF at = rect.topLeft() + QPoint(MarginPx, MarginPx);
  for (const TEntry &entry : m_entries) {
    PaintText(painter, at, entry.name);
    at.ry() += metrics.height() + GapPx;
    if (entry.styles.empty()) continue;
    for (std::size_t i = 0; i < entry.styles.size(); ++i) {
      painter.save();
      PaintSample(painter, QRectF(at + QPointF(SamplesWidthPx(i), 0), SamplePx), entry.styles[i]);
      painter.restore();
    }
    at.ry() += SamplePx.height() + GapPx;
  }
}

}  // namespace tessera
