// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QObject>

namespace tessera {

/// What the places of the mouse are drawn to when tools draw, move and reshape: vertices before intersections of edges,
/// these before edges, and these before the points of a grid, of the layers shown. The place is marked. All of it is
/// off at first.
class TESSERA_WIDGETS_EXPORT TMapSnapping : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool ToVertices READ GetToVertices WRITE SetToVertices)
  Q_PROPERTY(bool ToIntersections READ GetToIntersections WRITE SetToIntersections)
  Q_PROPERTY(bool ToEdges READ GetToEdges WRITE SetToEdges)
  Q_PROPERTY(double GridStep READ GetGridStep WRITE SetGridStep)
  Q_PROPERTY(bool ShiftConstrains READ GetShiftConstrains WRITE SetShiftConstrains)
  Q_PROPERTY(int TolerancePx READ GetTolerancePx WRITE SetTolerancePx)

 public:
  static constexpr int DefaultTolerancePx = 8;

  using QObject::QObject;

  [[nodiscard]] bool GetToVertices() const { return m_toVertices; }
  void SetToVertices(bool enabled) { m_toVertices = enabled; }
  [[nodiscard]] bool GetToIntersections() const { return m_toIntersections; }
  void SetToIntersections(bool enabled) { m_toIntersections = enabled; }
  [[nodiscard]] bool GetToEdges() const { return m_toEdges; }
  void SetToEdges(bool enabled) { m_toEdges = enabled; }
  /// How far apart the points of the grid lie, of which (0, 0) is one, in map units; 0, as at first, for none.
  [[nodiscard]] double GetGridStep() const { return m_gridStep; }
  void SetGridStep(double step) { m_gridStep = step; }
  /// Whether with Shift held lines are drawn along the eight directions, and rectangles as squares.
  [[nodiscard]] bool GetShiftConstrains() const { return m_shiftConstrains; }
  void SetShiftConstrains(bool enabled) { m_shiftConstrains = enabled; }
  /// How near a place must be, in client pixels.
  [[nodiscard]] int GetTolerancePx() const { return m_tolerancePx; }
  void SetTolerancePx(int tolerancePx) { m_tolerancePx = tolerancePx; }

 private:
  bool m_toVertices = false;
  bool m_toIntersections = false;
  bool m_toEdges = false;
  bool m_shiftConstrains = false;
  double m_gridStep = 0;
  int m_tolerancePx = DefaultTolerancePx;
};

}  // namespace tessera
