// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomMultiPointTool.h>

namespace tessera {

/// Draws a region of one ring, of at least three vertices, into the editable layer. The ring is stored closed: its
/// first vertex stands at its end once more.
class TESSERA_WIDGETS_EXPORT TRegionTool : public TCustomMultiPointTool {
  Q_OBJECT

 public:
  explicit TRegionTool(QObject *parent = nullptr);

  /// The ring as it would be with the mouse as its last vertex.
  void Draw() override;
  bool CreateObject() override;
};

}  // namespace tessera
