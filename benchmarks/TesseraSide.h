// SPDX-License-Identifier: MIT
#pragma once

#include "BareLoop.h"

#include <tessera/map/TTessera.h>

namespace tessera::bench {

/// A map control, never shown, with a map's shapes as objects of one layer.
class TesseraSide {
 public:
  TesseraSide(const FlatMap &map, QSize size);

  /// Turns the control to a view. Nothing is drawn yet.
  void Show(const BareView &view);
  /// Rebuilds the control's picture.
  void Draw() { m_control.PaintMapToBitmap(); }
  [[nodiscard]] QImage Picture() const;

 private:
  void Fill(TMapLayer &layer, const FlatMap &map);

  TTessera m_control;
};

}  // namespace tessera::bench
