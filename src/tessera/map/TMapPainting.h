// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/objects/TMapHost.h>

#include <QObject>

namespace tessera {

/// What a picture of the map shows on request. All of it is off at first.
class TESSERA_WIDGETS_EXPORT TMapPainting : public QObject {
  Q_OBJECT
  Q_PROPERTY(bool ShowSmallObjects READ GetShowSmallObjects WRITE SetShowSmallObjects)

 public:
  /// Of a map and its flags, which must outlive this.
  TMapPainting(TMapUpdates &map, TViewFlags &flags) : m_map(map), m_flags(flags) {}

  /// Lines and regions that are too small to leave ink show as one pixel in the colour of their pen, a region without
  /// an outline in that of its filling.
  [[nodiscard]] bool GetShowSmallObjects() const { return m_flags.ShowSmallObjects; }
  /// Asks for a new picture.
  void SetShowSmallObjects(bool show);

 private:
  TMapUpdates &m_map;
  TViewFlags &m_flags;
};

}  // namespace tessera
