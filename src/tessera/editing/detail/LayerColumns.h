// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapLayer.h>

#include <optional>
#include <utility>
#include <vector>

namespace tessera::detail {

// Changes of a layer's columns that its objects follow: they keep their values and share the new columns. Objects with
// a number of columns of their own are left alone. The links of the map are told of the layer, then of every object;
// what their handlers throw goes on when all is done. Cost: linear in the number of objects.

/// A column that can be put into a layer and taken out again, with its values. Objects that did not follow when it was
/// put in do not follow when it is taken out.
class LayerColumn {
 public:
  /// The column with this number among `columns`, the others of which are those of the layer it is to be put into.
  LayerColumn(const TDataFields &columns, int field, int labelField)
      : m_columns(columns), m_field(field), m_labelField(labelField) {}
  /// Column number `field` of a layer.
  LayerColumn(const TMapLayer &layer, int field) : LayerColumn(layer.GetFields(), field, layer.GetLabelFieldIndex()) {}

  /// Labels go back to the column that they were with.
  void PutInto(TMapLayer &layer);
  /// The labels stay with their column; that of the labels being taken out, the first one labels.
  void TakeOutOf(TMapLayer &layer);
  /// Whether the layer has as many columns as it must have for that.
  [[nodiscard]] bool CanBePutInto(const TMapLayer &layer) const;
  [[nodiscard]] bool CanBeTakenOutOf(const TMapLayer &layer) const;

 private:
  /// Which column is labelled when this one has gone.
  [[nodiscard]] int LabelFieldWithout(const TMapLayer &layer) const;

  TDataFields m_columns;  // as they are with it
  int m_field;
  int m_labelField;
  std::optional<int> m_labelFieldWithout;  // which was labelled before it was put in
  /// While it is out. Unassigned ones are left out.
  std::vector<std::pair<THandle<TCustomMapObject>, TDataValue>> m_values;
  std::vector<THandle<TCustomMapObject>> m_strangers;
};

/// Gives a layer and its objects other definitions of as many columns.
void RedefineColumns(TMapLayer &layer, const TDataFields &columns);

}  // namespace tessera::detail
