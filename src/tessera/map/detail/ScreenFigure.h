// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <functional>

namespace tessera {

class TCanvas;
class TTessera;

namespace detail {

/// Draws on a map's canvas as all figures of tools are drawn: every pixel inverted, nothing filled. Pen and brush stay
/// as they were.
TESSERA_WIDGETS_EXPORT void DrawInverted(TTessera &map, const std::function<void(TCanvas &canvas)> &draw);

/// A figure that stands on the screen picture of a map for a while. It is XORed with the picture, so that drawing it
/// again takes it away. While the picture is stale it is not drawn at all: whoever has it shows it again after the
/// repaint that is due then, as after any other.
class TESSERA_WIDGETS_EXPORT ScreenFigure {
 public:
  /// `draw` draws it once, as it was when it was last shown.
  explicit ScreenFigure(std::function<void()> draw) : m_draw(std::move(draw)) {}

  [[nodiscard]] bool IsShown() const { return m_isShown; }
  void Show(TTessera &map);
  void Hide(TTessera &map);
  /// The picture was drawn anew, without the figure.
  void Forget() { m_isShown = false; }
  /// The same, and the figure is shown again.
  void ShowAnew(TTessera &map);

 private:
  void Toggle(TTessera &map);

  std::function<void()> m_draw;
  bool m_isShown = false;
};

}  // namespace detail
}  // namespace tessera
