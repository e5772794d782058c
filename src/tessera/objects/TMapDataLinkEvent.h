// SPDX-License-Identifier: MIT
#pragma once

namespace tessera {

/// What a map tells the links of its companions. The order is part of the interface. The two "before" members stand for
/// subscribers and are never sent. While a layer is being loaded, the changes of its objects are not told one by one.
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
  mdlDelSelection,
  mdlLayerNameChanged,     ///< Of the layer, as the next three.
  mdlLayerZoomChanged,     ///< One of the two zoom limits.
  mdlLayerLabelChanged,    ///< The label's field or font.
  mdlLayerFieldsChanged,   ///< The columns.
  mdlObjectStyleChanged,   ///< Of the object: pen, brush, font or background colour.
  mdlObjectFieldsChanged,  ///< Of the object: values, or columns of its own.
  mdlMoveObject,           ///< The object stands at another place of its layer's order.
  /// Of the object: vertices, or what else of its kind the figure depends on. Told by TMapEdits alone, at the end of an
  /// edit.
  mdlObjectGeometryChanged
};

}  // namespace tessera
