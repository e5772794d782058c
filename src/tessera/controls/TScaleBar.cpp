// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/controls/TScaleBar.h>

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace tessera {
namespace {

constexpr int MarginPx = 4;
constexpr int BarHeightPx = 5;

/// Map units per client pixel; not a number for a view without a scale.
double UnitsPerPixel(const TTessera &map) {
  try {
    return double(1 / std::abs(map.GetViewport().GetScale().Kx));
  } catch (const EZeroDivide &) {
    return std::nan("");
  }
}

}  // namespace

TScaleBar::TScaleBar(QWidget *parent) : TMapDecoration(dcBottomLeft, parent) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void TScaleBar::SetMeasure(const TMapMeasure &measure) {
  m_measure = measure;
  ShowAnew();
}

void TScaleBar::SetMaxLengthPx(int lengthPx) {
  m_maxLengthPx = lengthPx;
  updateGeometry();
  ShowAnew();
}

TScaleBar::Bar TScaleBar::FindBar() const {
  const TTessera *map = GetMap();
  if (map == nullptr) return {};
  const double x = map->GetCenterX();
  const double y = map->GetCenterY();
  const double perPixel =
      UnitsPerPixel(*map) * m_measure.LengthOfUnit(map->GetisMapRotated() ? map->UnRotateY(x, y) : y);
  const double distance = RoundBelow(perPixel * m_maxLengthPx);
  return distance > 0 ? Bar{distance, distance / perPixel} : Bar{};
}

void TScaleBar::Refresh() {
  m_bar = FindBar();
}

void TScaleBar::ShowAnew() {
  Refresh();
  update();
}

void TScaleBar::MapChanged() {
  TMapDecoration::MapChanged();
  update();
}

void TScaleBar::MapRepainted() {
  if (!(m_bar == FindBar())) ShowAnew();
}

QString TScaleBar::GetText() const {
  constexpr int AllDigits = 15;
  if (!(m_bar.distance > 0)) return {};
  const QString number = locale().toString(m_bar.distance, 'g', AllDigits);
  const QString symbol = m_measure.GetSymbol();
  return symbol.isEmpty() ? number : number + u' ' + symbol;
}

QSize TScaleBar::sizeHint() const {
  const int textHeightPx = int(std::ceil(QFontMetricsF(GetPixelFont()).height()));
  return {m_maxLengthPx + 2 * MarginPx, textHeightPx + BarHeightPx + 2 * MarginPx};
}

void TScaleBar::PaintContent(QPainter &painter, const QRect &rect) const {
  if (!(m_bar.distance > 0)) return;
  const QFontMetricsF metrics(GetPixelFont());
  const QRectF bar(rect.left() + MarginPx, rect.top() + MarginPx + metrics.height(), m_bar.lengthPx, BarHeightPx - 1);
  const double textWidthPx = metrics.horizontalAdvance(GetText());
  const double textLeft = std::max(bar.left(), bar.center().x() - textWidthPx / 2);
  PaintText(painter, {textLeft, double(rect.top() + MarginPx)}, GetText());
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(GetInk());
  painter.setBrush(Qt::white);
  painter.drawRect(bar);
  painter.fillRect(QRectF(bar.topLeft(), QSizeF(bar.width() / 2, bar.height())), GetInk());
}

}  // namespace tessera
