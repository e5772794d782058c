// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/controls/detail/LayerColumns.h>

#include <functional>
#include <vector>

namespace tessera::detail {
namespace {

constexpr int NoField = -1;

/// Gives the objects of a layer these columns in the place of `countBefore` others, without the value of column
/// `removedField`.
void FollowColumns(const TMapLayer &layer, TDataFields columns, int countBefore, int removedField, AllSteps &steps) {
  std::vector<THandle<TCustomMapObject>> objects;
  objects.reserve(std::size_t(layer.GetObjectCount()));
  for (int i = 0; i < layer.GetObjectCount(); ++i) objects.emplace_back(layer.GetObjects(i));
  for (const auto &object : objects) {
    if (!object || object->GetFields().GetCount() != countBefore) continue;
    TValueRecord record = object->GetFields().GetRecord();
    if (removedField != NoField) record.Remove(removedField);
    columns.SetRecord(record.Bytes());
    steps.Try([&] { object->SetFields(columns); });
  }
}

void ChangeColumns(TMapLayer &layer, const std::function<void(TDataFields &)> &change, int removedField = NoField) {
  const int countBefore = layer.GetFieldCount();
  TDataFields columns = layer.GetFields();
  change(columns);
  const THandle<TMapLayer> self(&layer);
  AllSteps steps;
  steps.Try([&] { layer.SetFields(columns); });
  if (self) FollowColumns(layer, columns, countBefore, removedField, steps);
  if (self && layer.GetAutoLabel() && layer.GetMapHost()) layer.GetMapHost()->DoUpdate(true);
  steps.Rethrow();
}

}  // namespace

void AddLayerColumn(TMapLayer &layer, const QString &name, TDataType type, int size) {
  ChangeColumns(layer, [&](TDataFields &columns) { columns.Add(name, type, size); });
}

void RemoveLayerColumn(TMapLayer &layer, int field) {
  const THandle<TMapLayer> self(&layer);
  const int label = layer.GetLabelFieldIndex();
  AllSteps steps;
  steps.Try([&] {
    ChangeColumns(
        layer, [field](TDataFields &columns) { columns.Delete(field); }, field);
  });
  if (self && label == field) steps.Try([&] { layer.SetLabelFieldIndex(0); });
  if (self && label > field) steps.Try([&] { layer.SetLabelFieldIndex(label - 1); });
  steps.Rethrow();
}

void RenameLayerColumn(TMapLayer &layer, int field, const QString &name) {
  ChangeColumns(layer, [&](TDataFields &columns) { columns.GetFields(field).SetName(name); });
}

}  // namespace tessera::detail
