// SPDX-License-Identifier: MIT
#pragma once

namespace tessera {

/// What a map tells the links of its companions. The order is part of the interface. The two "before" members stand for
/// subscribers and are never sent.
enum TMapDataLinkEvent {
  mdlBeforeAddLayer,
  mdlAfterAddLayer,
  mdlBeforeDelLayer,
  mdlDelLayer,
  mdlAfterDelLayer,
  mdlMoveLayer,
  mdlExchangeLayer,
  mdlLayerVisibleChanged,
  mdlLayerSelectableChanged,
  mdlLayerEditableChanged,
  mdlLayerAutolabelChanged,
  mdlAddObject,
  mdlRemoveObject,
  mdlAddSelection,
  mdlDelSelection
};

}  // namespace tessera
