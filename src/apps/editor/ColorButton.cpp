// SPDX-License-Identifier: MIT
#include <apps/editor/ColorButton.h>

#include <QColorDialog>

namespace tessera::apps {

ColorButton::ColorButton(TColor color, QWidget *parent) : QToolButton(parent) {
  constexpr QSize SwatchPx(48, 16);
  setIconSize(SwatchPx);
  SetColor(color);
  connect(this, &QToolButton::clicked, this, &ColorButton::Ask);
}

void ColorButton::SetColor(TColor color) {
  m_color = color;
  QPixmap swatch(iconSize());
  swatch.fill(ToQColor(color));
  setIcon(swatch);
  setToolTip(ToQColor(color).name());
  Q_EMIT ColorChanged();
}

void ColorButton::Ask() {
  const QColor chosen = QColorDialog::getColor(ToQColor(m_color), this);
  if (chosen.isValid()) SetColor(FromQColor(chosen));
}

}  // namespace tessera::apps
