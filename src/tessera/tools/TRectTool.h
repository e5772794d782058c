// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomRectTool.h>

namespace tessera {

/// Draws a rectangle into the editable layer, its first corner where the button was pressed, wherever that lies; none
/// where press and release are the same pixel.
class TESSERA_WIDGETS_EXPORT TRectTool : public TCustomRectTool {
  Q_OBJECT

 public:
  explicit TRectTool(QObject *parent = nullptr);

  bool CreateObject() override;
  [[nodiscard]] bool GetEnabled() const override;
  [[nodiscard]] bool GetSnaps() const override { return true; }

 protected:
  [[nodiscard]] std::optional<QPoint> KeepWay(TShiftState shift, const QPoint &way) const override;
};

}  // namespace tessera
