// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TCustomMapTool.h>

namespace tessera {

/// Selects by clicks: a click makes the topmost object under it the only selected one, with Shift it adds the object or
/// takes it out, and each click with Ctrl reaches one layer deeper, beginning at the top again after the last one.
class TESSERA_WIDGETS_EXPORT TSelectionTool : public TCustomMapTool {
  Q_OBJECT

 public:
  explicit TSelectionTool(QObject *parent = nullptr);

  void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) override;
  void DblClick() override {}
  /// Nothing: this tool never sends OnComplete or OnCancel.
  bool Complete() override { return false; }
  void Cancel() override {}
};

}  // namespace tessera
