// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/TViewport.h>
#include <tessera/graphics/TCanvas.h>

#include <QWidget>

#include <functional>

namespace tessera::detail {

/// The two pictures of a map control with their canvases. The off-screen picture holds the map. The screen picture is
/// what the control shows: the map and what stands on it for a while.
///
/// Whatever is drawn on the screen picture is shown at once: the rectangle that its canvas tells of is shown anew, and
/// no more than that. Drawing on the off-screen picture shows nothing by itself.
///
/// While the off-screen picture is being made in steps, the last one that was completed is kept, to be shown meanwhile.
class ScreenPictures {
 public:
  explicit ScreenPictures(QWidget &control);

  [[nodiscard]] TCanvas &MapCanvas() { return m_mapCanvas; }
  [[nodiscard]] TCanvas &ScreenCanvas() { return m_screenCanvas; }

  /// Whether a picture has the size of the control and the resolution of its screen.
  [[nodiscard]] bool IsMapFitting() const { return IsFitting(m_map); }
  [[nodiscard]] bool IsScreenFitting() const { return IsFitting(m_screen); }
  /// Makes the screen picture fit if it does not; it is then all background.
  void FitScreen(TColor background);

  enum class Making { AtOnce, InSteps };
  /// The off-screen picture is made anew, for a view. It is made to fit if it does not, and is then all background.
  void BeginMap(const TViewport &view, TColor background, Making making);
  /// The off-screen picture is complete, or will not be made any further.
  void EndMap() { m_isMapComplete = true; }
  /// Draws the off-screen picture on a canvas, which may be its own; while it is not complete, the one before, moved
  /// and scaled to a view, with the background where nothing is.
  void DrawMap(TCanvas &canvas, const TViewport &view, TColor background);
  /// Whether DrawMap has last drawn for this view on the screen picture.
  [[nodiscard]] bool IsScreenOf(const TViewport &view) const { return m_screenView == view; }
  /// The off-screen picture that was completed last, of the control's size.
  [[nodiscard]] TBitmap CopyOfMap() const;

  /// Has the control repainted, whole. The request stands until the repaint is done, however many paint events pass by.
  void RequestRepaint();
  [[nodiscard]] bool IsRepaintRequested() const { return m_isRequested; }
  void SetRepaintDue() { m_isRequested = true; }
  void SetRepaintDone() { m_isRequested = false; }
  /// Repeats a request that still stands, because a paint event could not serve it.
  void RepeatRequest();

  /// Serves a paint event: `paint` may bring the screen picture up to date; then the exposed part of it is shown.
  void Show(const QRect &exposed, const std::function<void()> &paint);

 private:
  [[nodiscard]] bool IsFitting(const TBitmap &picture) const;
  void Fit(TBitmap &picture, TColor background);
  void DrawLast(TCanvas &canvas, const TViewport &view, TColor background) const;
  void NoteChange(const QRect &changed);

  QWidget &m_control;
  TBitmap m_map;
  TViewport m_mapView;
  bool m_isMapComplete = true;
  TBitmap m_last;  // the one completed before, while the other is not
  TViewport m_lastView;
  TBitmap m_screen;
  TViewport m_screenView;
  TCanvas m_mapCanvas{&m_map};
  TCanvas m_screenCanvas{&m_screen};
  QRect m_changed;            // of the screen picture, since it was last shown
  bool m_isRequested = true;  // nothing has been painted yet
  bool m_isShowing = false;
};

}  // namespace tessera::detail
