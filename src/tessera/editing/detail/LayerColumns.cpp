// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/detail/LayerColumns.h>

#include <functional>
#include <unordered_map>
#include <unordered_set>

namespace tessera::detail {
namespace {

/// Changes the values of an object in step with its columns. False leaves the object alone.
using Follow = std::function<bool(TCustomMapObject &object, TValueRecord &values)>;

/// Gives the objects of a layer these columns in the place of `countBefore` others.
void FollowColumns(const TMapLayer &layer, TDataFields columns, int countBefore, const Follow &follow,
                   AllSteps &steps) {
  std::vector<THandle<TCustomMapObject>> objects;
  objects.reserve(std::size_t(layer.GetObjectCount()));
  for (int i = 0; i < layer.GetObjectCount(); ++i) objects.emplace_back(layer.GetObjects(i));
  for (const auto &object : objects) {
    if (!object || object->GetFields().GetCount() != countBefore) continue;
    TValueRecord record = object->GetFields().GetRecord();
    if (!follow(*object.Get(), record)) continue;
    columns.SetRecord(record.Bytes());
    steps.Try([&] { object->SetFields(columns); });
  }
}

void SetColumns(TMapLayer &layer, const TDataFields &columns, int labelField, const Follow &follow) {
  const int countBefore = layer.GetFieldCount();
  const THandle<TMapLayer> self(&layer);
  AllSteps steps;
  steps.Try([&] { layer.SetFields(columns); });
  if (self) FollowColumns(layer, columns, countBefore, follow, steps);
  if (self) steps.Try([&] { layer.SetLabelFieldIndex(labelField); });
  if (self && layer.GetAutoLabel() && layer.GetMapHost()) layer.GetMapHost()->DoUpdate(true);
  steps.Rethrow();
}

}  // namespace

bool LayerColumn::CanBePutInto(const TMapLayer &layer) const {
  return layer.GetFieldCount() + 1 == m_columns.GetCount();
}

bool LayerColumn::CanBeTakenOutOf(const TMapLayer &layer) const {
  return layer.GetFieldCount() == m_columns.GetCount();
}

int LayerColumn::LabelFieldWithout(const TMapLayer &layer) const {
  const int label = layer.GetLabelFieldIndex();
  if (m_labelFieldWithout && label == m_labelField) return *m_labelFieldWithout;
  return label == m_field ? 0 : label - (label > m_field ? 1 : 0);
}

void LayerColumn::PutInto(TMapLayer &layer) {
  m_labelFieldWithout = layer.GetLabelFieldIndex();
  std::unordered_map<const TCustomMapObject *, TDataValue> values;
  for (auto &[object, value] : std::exchange(m_values, {})) {
    if (object) values.emplace(object.Get(), std::move(value));
  }
  m_strangers.clear();
  for (int i = 0; i < layer.GetObjectCount(); ++i) {
    TCustomMapObject *object = layer.GetObjects(i);
    if (object->GetFields().GetCount() != layer.GetFieldCount()) m_strangers.emplace_back(object);
  }
  SetColumns(layer, m_columns, m_labelField, [&](TCustomMapObject &object, TValueRecord &record) {
    const auto value = values.find(&object);
    if (value != values.end()) {
      record.Insert(m_field, value->second);
    } else if (!record.Bytes().empty()) {
      record.Insert(m_field, {});
    }
    return true;
  });
}

void LayerColumn::TakeOutOf(TMapLayer &layer) {
  std::unordered_set<const TCustomMapObject *> strangers;
  for (const auto &stranger : m_strangers) strangers.insert(stranger.Get());
  const int labelField = LabelFieldWithout(layer);
  m_labelField = layer.GetLabelFieldIndex();
  m_columns = layer.GetFields();
  TDataFields others = m_columns;
  others.Delete(m_field);
  SetColumns(layer, others, labelField, [&](TCustomMapObject &object, TValueRecord &record) {
    if (strangers.contains(&object)) return false;
    TDataValue value = record.Get(m_field);
    if (!std::holds_alternative<std::monostate>(value)) m_values.emplace_back(&object, std::move(value));
    record.Remove(m_field);
    return true;
  });
}

void RedefineColumns(TMapLayer &layer, const TDataFields &columns) {
  SetColumns(layer, columns, layer.GetLabelFieldIndex(), [](TCustomMapObject &, TValueRecord &) { return true; });
}

}  // namespace tessera::detail
