// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomPressMoveAndReleaseTool.h>

namespace tessera {

/// Base of tools that drag up a rectangle.
class TESSERA_WIDGETS_EXPORT TCustomRectTool : public TCustomPressMoveAndReleaseTool {
  Q_OBJECT

 public:
  using TCustomPressMoveAndReleaseTool::TCustomPressMoveAndReleaseTool;

  void Draw() override;
};

}  // namespace tessera
