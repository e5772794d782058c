// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomMultiPointTool.h>

namespace tessera {

/// Selects what meets a polygon that is clicked together, of all selectable layers shown. What was selected before no
/// longer is; with Shift held at the last click it stays, and with Ctrl what is met is deselected. Two corners make a
/// line, and one is a click of the selection tool.
class TESSERA_WIDGETS_EXPORT TPolygonSelectionTool : public TCustomMultiPointTool {
  Q_OBJECT
  Q_PROPERTY(bool Within READ GetWithin WRITE SetWithin)

 public:
  explicit TPolygonSelectionTool(QObject *parent = nullptr);

  /// Whether only what lies in the figure as a whole counts; else what meets it does.
  [[nodiscard]] bool GetWithin() const { return m_isWithin; }
  void SetWithin(bool isWithin) { m_isWithin = isWithin; }

  void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) override;
  /// The polygon as it would be with the mouse as its last corner.
  void Draw() override;
  bool CreateObject() override;
  /// No layer need be editable.
  [[nodiscard]] bool GetEnabled() const override;
  [[nodiscard]] bool GetSnaps() const override { return false; }

 private:
  TShiftState m_keys;
  bool m_isWithin = false;
};

}  // namespace tessera
