// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomPressMoveAndReleaseTool.h>

namespace tessera {

namespace detail {
class PanPicture;
}

/// Drags the map. While the button is held the picture alone moves, with the map's background where it has nothing to
/// show; the release moves the view. Sends no OnComplete.
class TESSERA_WIDGETS_EXPORT TPanTool : public TCustomPressMoveAndReleaseTool {
  Q_OBJECT

 public:
  explicit TPanTool(QObject *parent = nullptr);
  ~TPanTool() override;

  void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) override;
  void MouseMove(TShiftState shift, int x, int y) override;
  void MouseUp(Qt::MouseButton button, TShiftState shift, int x, int y) override;

 protected:
  void ScreenRepainted() override;
  void Abandon() override;

 private:
  void ShowMoved();

  std::unique_ptr<detail::PanPicture> m_picture;
};

}  // namespace tessera
