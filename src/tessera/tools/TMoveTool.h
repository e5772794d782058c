// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TBounds.h>
#include <tessera/tools/TCustomPressMoveAndReleaseTool.h>

#include <vector>

namespace tessera {

class TCustomMapObject;

/// Moves the selected objects of the editable layer by the way of a drag that begins on one of them; with Shift held
/// the way keeps to the nearest of the eight directions that lie 45 degrees apart. They move at the release, in one
/// step that can be undone. A press anywhere else begins nothing.
class TESSERA_WIDGETS_EXPORT TMoveTool : public TCustomPressMoveAndReleaseTool {
  Q_OBJECT

 public:
  explicit TMoveTool(QObject *parent = nullptr);

  void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) override;
  /// A frame about all that would move, where it would be.
  void Draw() override;
  /// Creates none, but moves what is selected by now.
  bool CreateObject() override;
  [[nodiscard]] bool GetEnabled() const override;
  [[nodiscard]] bool GetSnaps() const override { return true; }
  /// The press is drawn to what is to be moved, and then the mouse to the rest.
  [[nodiscard]] bool IsSnapTarget(const TCustomMapObject &object) const override;

 protected:
  [[nodiscard]] std::optional<QPoint> KeepWay(TShiftState shift, const QPoint &way) const override;
  /// What is selected in the editable layer.
  [[nodiscard]] std::vector<TCustomMapObject *> GetMovable() const;
  /// What that takes up, labels with all their letters; inverted where there is nothing.
  [[nodiscard]] TBounds GetBoundsOfMovable() const;

 private:
  TBounds m_frame = TBounds::Empty();
};

}  // namespace tessera
