// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/THandle.h>
#include <tessera/map/TCustomMapTool.h>
#include <tessera/objects/TCustomMapObject.h>

#include <vector>

namespace tessera {

/// Tells what there is at a click: the objects of all layers that are shown, selectable or not, with the tolerance of
/// the map. It changes nothing.
class TESSERA_WIDGETS_EXPORT TIdentifyTool : public TCustomMapTool {
  Q_OBJECT

 public:
  using Objects = std::vector<THandle<TCustomMapObject>>;

  explicit TIdentifyTool(QObject *parent = nullptr);

  void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) override;

 Q_SIGNALS:
  /// After every click: the topmost object first; none where there is nothing. The list is good as long as the handler
  /// runs.
  void OnIdentify(tessera::TIdentifyTool *sender, const tessera::TIdentifyTool::Objects &objects);
};

}  // namespace tessera
