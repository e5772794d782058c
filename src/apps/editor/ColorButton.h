// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TColor.h>

#include <QToolButton>

namespace tessera::apps {

/// Shows a colour and lets the person choose another one.
class ColorButton : public QToolButton {
  Q_OBJECT

 public:
  explicit ColorButton(TColor color, QWidget *parent = nullptr);

  [[nodiscard]] TColor GetColor() const { return m_color; }
  void SetColor(TColor color);

 Q_SIGNALS:
  void ColorChanged();

 private:
  void Ask();

  TColor m_color = clBlack;
};

}  // namespace tessera::apps
