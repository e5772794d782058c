// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/objects/TMapHost.h>

#include <QObject>

class QPainter;

namespace tessera {

/// What a picture of the map shows, and how it is made, on request. All of it is off at first.
class TESSERA_WIDGETS_EXPORT TMapPainting : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool ShowSmallObjects READ GetShowSmallObjects WRITE SetShowSmallObjects)
  Q_PROPERTY(bool ShowCutObjects READ GetShowCutObjects WRITE SetShowCutObjects)
  Q_PROPERTY(bool PaintInSteps READ GetPaintInSteps WRITE SetPaintInSteps)
  Q_PROPERTY(int StepMs READ GetStepMs WRITE SetStepMs)

 public:
  /// Of a map and its flags, which must outlive this.
  TMapPainting(TMapUpdates &map, TViewFlags &flags) : m_map(map), m_flags(flags) {}

  /// Lines and regions that are too small to leave ink show as one pixel in the colour of their pen, a region without
  /// an outline in that of its filling.
  [[nodiscard]] bool GetShowSmallObjects() const { return m_flags.ShowSmallObjects; }
  /// Asks for a new picture.
  void SetShowSmallObjects(bool show);

  /// Circles and rectangles that the edge of the view cuts show as well: without this only those do that hold one of
  /// its corners, for so they answer what area they meet. Layers are then drawn in the order of their objects even with
  /// a spatial index, which is not asked.
  [[nodiscard]] bool GetShowCutObjects() const { return m_flags.ShowCutObjects; }
  /// Asks for a new picture.
  void SetShowCutObjects(bool show);

  /// A picture that takes longer than StepMs is made in steps, between which the control answers to events. Until it is
  /// complete the one before stays, moved and scaled to the new view; what asks for a new picture meanwhile has it made
  /// from the start. The events are those of a picture that is made at once, but others may come in between; displayed
  /// objects are those that the new picture shows so far.
  [[nodiscard]] bool GetPaintInSteps() const { return m_paintInSteps; }
  void SetPaintInSteps(bool inSteps) { m_paintInSteps = inSteps; }
  /// About how long a step takes, in milliseconds: an object is drawn in one go.
  [[nodiscard]] int GetStepMs() const { return m_stepMs; }
  void SetStepMs(int stepMs) { m_stepMs = stepMs; }

  /// For programs that export or print what the map shows: has whoever handles OnDecorate draw over it. The painter is
  /// as it was afterwards.
  void Decorate(QPainter &painter, const QRect &picture);

 Q_SIGNALS:
  /// A picture of the map that leaves the screen is being drawn on a painter, in client pixels.
  void OnDecorate(QPainter &painter, const QRect &picture);

 private:
  TMapUpdates &m_map;
  TViewFlags &m_flags;
  bool m_paintInSteps = false;
  int m_stepMs = 50;
};

}  // namespace tessera
