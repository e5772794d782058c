// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

#include <optional>
#include <span>

namespace tessera::detail {

/// What the outlines of an object stand for.
enum class ObjectFigure : std::uint8_t { Line, Area };

/// The colour of the one pixel as which an object shows that is too small to leave ink: its pen's, or, for an area
/// whose pen is clear, that of its brush or else of its background. None when nothing of it would show at any size.
[[nodiscard]] TESSERA_CORE_EXPORT std::optional<TColor> ColorOfSmall(const TCustomMapObject &object,
                                                                     ObjectFigure figure, const TPen &pen,
                                                                     const TBrush &brush);

/// Draws an object as one pixel when none of its outlines has more than one point and the map shows small objects: in
/// the middle of its extent if all of that thins to one point, and else where its first outline is.
class SmallObject {
 public:
  /// @pre the object is on a map
  SmallObject(const TCustomMapObject &object, ObjectFigure figure) : m_object(object), m_figure(figure) {}

  /// Takes note of the outline of one part.
  void See(std::span<const TPoint> outline) {
    m_leavesInk = m_leavesInk || outline.size() > 1;
    if (!m_place && !outline.empty()) m_place = outline[0];
  }
  /// With the tools that the canvas holds. Nothing for an object without extent or out of view.
  void Draw() const;

 private:
  const TCustomMapObject &m_object;
  ObjectFigure m_figure;
  bool m_leavesInk = false;
  std::optional<TPoint> m_place;
};

}  // namespace tessera::detail
