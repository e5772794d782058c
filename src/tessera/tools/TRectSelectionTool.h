// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomAreaSelectionTool.h>

namespace tessera {

/// Selects by a rectangle.
class TESSERA_WIDGETS_EXPORT TRectSelectionTool : public TCustomAreaSelectionTool {
  Q_OBJECT

 public:
  explicit TRectSelectionTool(QObject *parent = nullptr);

 protected:
  [[nodiscard]] detail::SelectionArea AreaOf(const TMapPoint &press, const TMapPoint &release) const override;
};

}  // namespace tessera
