// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomMultiPointTool.h>

namespace tessera {

/// Draws a polyline of at least two vertices into the editable layer.
class TESSERA_WIDGETS_EXPORT TPolylineTool : public TCustomMultiPointTool {
  Q_OBJECT

 public:
  explicit TPolylineTool(QObject *parent = nullptr);

  void Draw() override;
  bool CreateObject() override;
};

}  // namespace tessera
