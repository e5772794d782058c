// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TMapPoint.h>
#include <tessera/map/TCustomMapTool.h>

namespace tessera {

/// Base of tools that put an object where they are clicked. A double click puts two there, one for its first press and
/// one for itself; its second press counts for nothing. This is intended.
class TESSERA_WIDGETS_EXPORT TCustomClickTool : public TCustomMapTool {
  Q_OBJECT

 public:
  explicit TCustomClickTool(QObject *parent = nullptr);

  void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) override;
  void MouseMove(TShiftState shift, int x, int y) override;
  void DblClick() override;
  /// Puts an object where the last click was.
  bool Complete() override;
  [[nodiscard]] bool GetEnabled() const override;
  [[nodiscard]] bool GetSnaps() const override { return true; }

 protected:
  void Abandon() override { m_isSecondPressDue = false; }
  /// Puts an object into a layer at a map point.
  virtual void PutObject(TMapLayer &layer, const TMapPoint &at) = 0;

 private:
  QPoint m_clicked;
  /// The press that comes next is the second one of a double click, which has been served.
  bool m_isSecondPressDue = false;
};

}  // namespace tessera
