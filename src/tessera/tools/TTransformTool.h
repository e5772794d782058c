// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/TMapTransform.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/tools/TMoveTool.h>

#include <array>
#include <optional>

namespace tessera {

namespace detail {
class StandingFigure;
}

/// Scales, turns and moves the selected objects of the editable layer together. As long as it is active, eight square
/// handles stand around them and a round one above. Dragging a handle at a corner scales in both directions, with Shift
/// held by the same factor; one at a side scales in one direction; the round one turns about the middle, with Shift
/// held by steps of 15 degrees; dragging what lies between moves as the move tool does.
///
/// The objects change at the release, in one step that can be undone: see the Transform of each kind. Nothing is scaled
/// to nothing.
class TESSERA_WIDGETS_EXPORT TTransformTool : public TMoveTool {
  Q_OBJECT

 public:
  explicit TTransformTool(QObject *parent = nullptr);
  ~TTransformTool() override;

  void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) override;
  void MouseMove(TShiftState shift, int x, int y) override;
  /// The frame about all that would change, as it would be.
  void Draw() override;
  /// Creates none, but changes what is selected by now.
  bool CreateObject() override;
  void Init() override;
  void Done() override;

 protected:
  [[nodiscard]] std::optional<QPoint> KeepWay(TShiftState shift, const QPoint &way) const override;

 private:
  /// Where a handle stands, from the middle: -1, 0 or 1 to the right and upwards. The round one is at (0, 2), what lies
  /// between at (0, 0).
  struct Grip {
    int right;
    int up;

    bool operator==(const Grip &) const = default;
  };
  static constexpr Grip Turning{0, 2};
  static constexpr Grip Between{0, 0};
  static constexpr std::array<Grip, 9> Grips = {
      {Turning, {-1, -1}, {0, -1}, {1, -1}, {-1, 0}, {1, 0}, {-1, 1}, {0, 1}, {1, 1}}};

  void UpdateHandles();
  void DrawHandles();
  [[nodiscard]] TPoint GetPlaceOf(const Grip &grip) const;
  [[nodiscard]] std::optional<Grip> GetGripAt(const QPoint &pixel) const;
  /// What the drag so far does; the identity outside a drag.
  [[nodiscard]] TMapTransform GetTransform() const;
  [[nodiscard]] TMapTransform GetScaling(const TMapPoint &way) const;
  [[nodiscard]] TMapTransform GetRotation(const TMapPoint &from, const TMapPoint &to) const;

  std::unique_ptr<detail::StandingFigure> m_handles;
  TBounds m_handled = TBounds::Empty();  // what the handles stand around
  Grip m_grip = Between;
  bool m_isShiftHeld = false;
};

}  // namespace tessera
