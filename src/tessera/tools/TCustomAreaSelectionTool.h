// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TMapPoint.h>
#include <tessera/tools/TCustomRectTool.h>

namespace tessera {

namespace detail {
class SelectionArea;
}

/// Selects what meets a figure that is dragged up, of all selectable layers shown. What was selected before no longer
/// is; with Shift held at the press it stays, and with Ctrl what is met is deselected. A drag that goes nowhere is a
/// click of the selection tool. A kind of tool says what the figure is.
class TESSERA_WIDGETS_EXPORT TCustomAreaSelectionTool : public TCustomRectTool {
  Q_OBJECT
  Q_PROPERTY(bool Within READ GetWithin WRITE SetWithin)

 public:
  /// Whether only what lies in the figure as a whole counts; else what meets it does.
  [[nodiscard]] bool GetWithin() const { return m_isWithin; }
  void SetWithin(bool isWithin) { m_isWithin = isWithin; }

  void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) override;
  bool CreateObject() override;

 protected:
  explicit TCustomAreaSelectionTool(QObject *parent);
  /// The figure on the map.
  [[nodiscard]] virtual detail::SelectionArea AreaOf(const TMapPoint &press, const TMapPoint &release) const = 0;

 private:
  TShiftState m_keys;
  bool m_isWithin = false;
};

}  // namespace tessera
