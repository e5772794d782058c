// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QObject>

namespace tessera {

/// Which ways of moving the view a map offers beside its tools and the steps of the wheel.
class TESSERA_WIDGETS_EXPORT TMapNavigation : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool Keys READ GetKeys WRITE SetKeys)
  Q_PROPERTY(bool MiddleButton READ GetMiddleButton WRITE SetMiddleButton)
  Q_PROPERTY(bool Touch READ GetTouch WRITE SetTouch)
  Q_PROPERTY(bool WheelKeepsPlace READ GetWheelKeepsPlace WRITE SetWheelKeepsPlace)
  Q_PROPERTY(bool WheelAddsUp READ GetWheelAddsUp WRITE SetWheelAddsUp)

 public:
  using QObject::QObject;

  /// Where the active tool does not want the keys: arrows pan by a tenth of the view, plus and minus zoom by 2, Home
  /// shows all layers, Escape cancels what a tool has begun. True at first; so for the next two.
  [[nodiscard]] bool GetKeys() const { return m_keys; }
  void SetKeys(bool enabled) { m_keys = enabled; }
  /// Dragging with the middle button pans, whatever tool is active.
  [[nodiscard]] bool GetMiddleButton() const { return m_middleButton; }
  void SetMiddleButton(bool enabled) { m_middleButton = enabled; }
  /// Two fingers zoom by their distance and pan by their way.
  [[nodiscard]] bool GetTouch() const { return m_touch; }
  void SetTouch(bool enabled) { m_touch = enabled; }
  /// The wheel keeps the place under the mouse pointer where it is, instead of what the map's ZoomType says. False at
  /// first; so for the next one.
  [[nodiscard]] bool GetWheelKeepsPlace() const { return m_wheelKeepsPlace; }
  void SetWheelKeepsPlace(bool enabled) { m_wheelKeepsPlace = enabled; }
  /// The small steps of a touchpad, or of a finer wheel, add up to one step of the wheel (120 eighths of a degree),
  /// instead of being a step each.
  [[nodiscard]] bool GetWheelAddsUp() const { return m_wheelAddsUp; }
  void SetWheelAddsUp(bool enabled) { m_wheelAddsUp = enabled; }

 private:
  bool m_keys = true;
  bool m_middleButton = true;
  bool m_touch = true;
  bool m_wheelKeepsPlace = false;
  bool m_wheelAddsUp = false;
};

}  // namespace tessera
