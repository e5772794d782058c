// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TCustomMapTool.h>

#include <memory>

namespace tessera {

class TCanvas;
namespace detail {
class MapGesture;
class ScreenFigure;
}  // namespace detail

/// Base of tools that are at work for a while, with a figure on the screen picture as long as that lasts: the machine
/// of a gesture. It begins, goes on through changes of the figure, and ends by itself (Complete) or is given up
/// (Cancel, another tool, another map, a lost mouse).
///
/// The figure is XORed with the picture, so that drawing it again takes it away. It is drawn anew after every repaint.
/// While the picture is stale it is not drawn at all; the repaint that is due then brings it.
class TESSERA_WIDGETS_EXPORT TCustomGestureTool : public TCustomMapTool {
  Q_OBJECT

 public:
  explicit TCustomGestureTool(QObject *parent = nullptr);
  /// The figure goes with the tool.
  ~TCustomGestureTool() override;

  /// Draws the figure once, which shows it or takes it away. Here there is none.
  virtual void Draw() {}
  /// What a gesture that has ended makes. Answers whether an object was created; here, none is.
  virtual bool CreateObject() { return false; }

  /// Takes the figure away, creates the object, and sends OnComplete whether there is one or not.
  bool Complete() override;
  void Cancel() override;
  void Init() override;
  void Done() override;
  [[nodiscard]] bool GetInGesture() const override;

 protected:
  /// Begins a gesture that the mouse button holds, or none with Qt::NoButton, and shows its figure. @pre on a map
  void BeginGesture(Qt::MouseButton heldBy);
  /// Ends it: the figure goes. Nothing when none is running.
  void EndGesture();
  /// Changes what the figure is drawn from, while it is not on the screen.
  void ChangeFigure(const std::function<void()> &change);
  /// The screen picture was drawn anew while the gesture goes on: the figure is no longer there.
  virtual void ScreenRepainted();
  /// What has been collected is no longer wanted.
  virtual void Forget() {}
  void Abandon() override;
  /// Whether Shift is held and the map has it bend what is drawn (TMapSnapping).
  [[nodiscard]] bool IsConstraining(TShiftState shift) const;

  /// Draws on the map's canvas as all figures are drawn: every pixel inverted, nothing filled. Pen and brush stay as
  /// they were. Nothing without a map.
  void DrawInverted(const std::function<void(TCanvas &canvas)> &draw);

 private:
  std::unique_ptr<detail::MapGesture> m_gesture;
  std::unique_ptr<detail::ScreenFigure> m_figure;
};

}  // namespace tessera
