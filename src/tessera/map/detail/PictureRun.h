// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/detail/LayerPainting.h>
#include <tessera/map/detail/ScreenPictures.h>
#include <tessera/objects/TMapScopes.h>

#include <QPointer>
#include <QTime>

#include <optional>

namespace tessera {

class TTessera;

namespace detail {

/// The making of one picture of a map on its off-screen picture, with its events, at once or in steps: background, the
/// pictures under the map, layer by layer. Exceptions may come out of a step; the picture then ends there.
class PictureRun {
 public:
  using Making = ScreenPictures::Making;
  PictureRun(TTessera &map, ScreenPictures &pictures, Making making);

  using State = LayerPainting::State;
  /// Draws on, and stops soon after a time. In the last step the map may go.
  State Continue(const QDeadlineTimer &until);

 private:
  void Begin();
  State PaintLayers(const QDeadlineTimer &until);
  /// Draws what is left of the layer that is at work.
  State PaintLayer(const QDeadlineTimer &until);
  void TellOfTime() const;

  QPointer<TTessera> m_map;
  ScreenPictures &m_pictures;
  Making m_making;
  QTime m_start;  // not valid before the first step
  std::optional<TProgressScope> m_progress;
  std::optional<LayerPainting> m_layer;
  int m_layerIndex = 0;
};

}  // namespace detail
}  // namespace tessera
