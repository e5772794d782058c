// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TCardinalArray.h>
#include <tessera/base/THandle.h>
#include <tessera/layers/TMapLayer.h>

#include <QDeadlineTimer>

namespace tessera::detail {

/// The drawing of the objects of one layer that are in view, at once or in steps. Between steps anything may happen to
/// the layer.
class TESSERA_CORE_EXPORT LayerPainting {
 public:
  /// Finds the objects. None of a layer that is not to be seen.
  explicit LayerPainting(TMapLayer &layer);

  enum class State {
    Paused,
    Complete,
    Outdated,  ///< Since the last step objects have been taken out or moved in the order, or the layer has gone.
  };
  /// Draws on, one object at least, and stops soon after a time. An object is drawn in one go.
  State Continue(const QDeadlineTimer &until);

 private:
  void TellOfStaleIndex(TMapLayer &layer) const;

  THandle<TMapLayer> m_layer;
  TCardinalArray m_ids;
  std::size_t m_drawnCount = 0;
  std::uint64_t m_order = 0;
  int m_staleCount = 0;
  bool m_isInView = false;
  bool m_isInOrder = true;  // in that of the layer's list
};

}  // namespace tessera::detail
