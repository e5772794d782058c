// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomAreaSelectionTool.h>

namespace tessera {

/// Selects by a circle from its centre.
class TESSERA_WIDGETS_EXPORT TCircleSelectionTool : public TCustomAreaSelectionTool {
  Q_OBJECT

 public:
  explicit TCircleSelectionTool(QObject *parent = nullptr);

  /// The circle.
  void Draw() override;

 protected:
  [[nodiscard]] detail::SelectionArea AreaOf(const TMapPoint &press, const TMapPoint &release) const override;
};

}  // namespace tessera
