// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomPressMoveAndReleaseTool.h>

namespace tessera {

/// Draws a line from the press to the release into the editable layer; none where both are the same pixel.
class TESSERA_WIDGETS_EXPORT TLineTool : public TCustomPressMoveAndReleaseTool {
  Q_OBJECT

 public:
  explicit TLineTool(QObject *parent = nullptr);

  void Draw() override;
  bool CreateObject() override;
  [[nodiscard]] bool GetEnabled() const override;
  [[nodiscard]] bool GetSnaps() const override { return true; }

 protected:
  [[nodiscard]] std::optional<QPoint> KeepWay(TShiftState shift, const QPoint &way) const override;
};

}  // namespace tessera
