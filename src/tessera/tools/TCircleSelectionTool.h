// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomRectTool.h>

namespace tessera {

/// Selects what meets a circle from its centre that is dragged up, of all selectable layers shown. What was selected
/// before no longer is; with Shift held at the press it stays, and with Ctrl what is met is deselected. A drag that
/// goes nowhere is a click of the selection tool.
class TESSERA_WIDGETS_EXPORT TCircleSelectionTool : public TCustomRectTool {
  Q_OBJECT
  Q_PROPERTY(bool Within READ GetWithin WRITE SetWithin)

 public:
  explicit TCircleSelectionTool(QObject *parent = nullptr);

  /// Whether only what lies in the figure as a whole counts; else what meets it does.
  [[nodiscard]] bool GetWithin() const { return m_isWithin; }
  void SetWithin(bool isWithin) { m_isWithin = isWithin; }

  void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) override;
  /// The circle.
  void Draw() override;
  bool CreateObject() override;

 private:
  TShiftState m_keys;
  bool m_isWithin = false;
};

}  // namespace tessera
