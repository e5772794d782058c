// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapLayer.h>

namespace tessera::detail {

// Changes of a layer's columns that its objects follow: they keep their values and share the new columns. Objects with
// a number of columns of their own are left alone. The links of the map are told of the layer, then of every object;
// what their handlers throw goes on when all is done. Cost: linear in the number of objects.

/// Appends a column, whose values are unassigned.
void AddLayerColumn(TMapLayer &layer, const QString &name, TDataType type, int size);
/// Takes out column number `field` and its values. The labels stay with their column; that of the labels being taken
/// out, the first one labels.
void RemoveLayerColumn(TMapLayer &layer, int field);
void RenameLayerColumn(TMapLayer &layer, int field, const QString &name);

}  // namespace tessera::detail
