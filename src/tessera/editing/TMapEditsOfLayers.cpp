// SPDX-License-Identifier: MIT
// Edits of columns and layers.
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/editing/detail/ColumnCommands.h>
#include <tessera/editing/detail/LayerCommands.h>

#include <algorithm>

namespace tessera {

using Step = detail::ColumnPresenceCommand::Step;

void TMapEdits::AddColumn(TMapLayer &layer, const QString &name, TDataType type, int size) {
  const detail::BeforeEdit before = detail::NoteBefore(m_map);
  const THandle<TMapLayer> handle(&layer);
  TDataFields columns = layer.GetFields();
  columns.Add(name, type, size);
  detail::LayerColumn column(columns, columns.GetCount() - 1, layer.GetLabelFieldIndex());
  AllSteps steps;
  steps.Try([&] { column.PutInto(layer); });
  if (handle) {
    detail::Record<detail::ColumnPresenceCommand>(before, tr("add column"), layer, std::move(column), Step::Added);
  }
  steps.Rethrow();
}

void TMapEdits::RemoveColumn(TMapLayer &layer, int field) {
  CheckedIndex(field, std::size_t(layer.GetFieldCount()), "Field");
  const detail::BeforeEdit before = detail::NoteBefore(m_map);
  const THandle<TMapLayer> handle(&layer);
  detail::LayerColumn column(layer, field);
  AllSteps steps;
  steps.Try([&] { column.TakeOutOf(layer); });
  if (handle) {
    detail::Record<detail::ColumnPresenceCommand>(before, tr("remove column"), layer, std::move(column), Step::Removed);
  }
  steps.Rethrow();
}

void TMapEdits::RenameColumn(TMapLayer &layer, int field, const QString &name) {
  ChangeColumns(layer, tr("rename column"), [&](TDataFields &columns) { columns.GetFields(field).SetName(name); });
}

void TMapEdits::ChangeColumns(TMapLayer &layer, const QString &text,
                              const std::function<void(TDataFields &columns)> &change) {
  const detail::BeforeEdit before = detail::NoteBefore(m_map);
  const THandle<TMapLayer> handle(&layer);
  const TDataFields present = layer.GetFields();
  TDataFields columns = present;
  change(columns);
  AllSteps steps;
  steps.Try([&] { detail::RedefineColumns(layer, columns); });
  if (handle) detail::Record<detail::ColumnsCommand>(before, text, layer, present);
  steps.Rethrow();
}

TMapLayer *TMapEdits::AddLayer(const QString &fileName, const QString &layerName) {
  const detail::BeforeEdit before = detail::NoteBefore(m_map);
  std::vector<const TMapLayer *> known;
  for (const auto &layer : m_map->GetLayers()->Items()) known.push_back(layer.get());
  AllSteps steps;
  steps.Try([&] { m_map->GetLayers()->Add(fileName, layerName); });
  TMapLayer *added = nullptr;
  if (before.layers) {
    for (const auto &layer : before.layers->Items()) {
      if (std::find(known.begin(), known.end(), layer.get()) == known.end()) added = layer.get();
    }
  }
  if (added) detail::Record<detail::LayerPresenceCommand>(before, tr("add layer"), *added);
  steps.Rethrow();
  return added;
}

bool TMapEdits::DeleteLayer(int index) {
  const detail::BeforeEdit before = detail::NoteBefore(m_map);
  TMapLayers &layers = *m_map->GetLayers();
  if (!before.history) {
    const THandle<TMapLayer> doomed(layers.GetLayer(index));
    layers.Delete(index);
    return !doomed;
  }
  std::unique_ptr<TMapLayer> taken = layers.TakeLayer(index, true);
  if (!taken) return false;
  detail::Record<detail::LayerPresenceCommand>(before, tr("remove layer"), std::move(taken), index);
  return true;
}

void TMapEdits::MoveLayer(int curIndex, int newIndex) {
  const detail::BeforeEdit before = detail::NoteBefore(m_map);
  TMapLayers &layers = *m_map->GetLayers();
  const THandle<TMapLayer> layer(layers.GetLayer(curIndex));
  static_cast<void>(layers.GetLayer(newIndex));
  AllSteps steps;
  steps.Try([&] { layers.Move(curIndex, newIndex); });
  if (layer && curIndex != newIndex) {
    detail::Record<detail::LayerOrderCommand>(before, tr("move layer"), *layer.Get(), curIndex);
  }
  steps.Rethrow();
}

void TMapEdits::ChangeLayers(const QString &text, const std::function<void()> &change) {
  const detail::BeforeEdit before = detail::NoteBefore(m_map);
  std::vector<detail::LayerState> states;
  if (before.history) {
    for (const auto &layer : m_map->GetLayers()->Items()) states.emplace_back(*layer);
  }
  AllSteps steps;
  steps.Try(change);
  std::erase_if(states, [](const detail::LayerState &state) { return state.IsCurrent(); });
  if (!states.empty()) detail::Record<detail::LayerStateCommand>(before, text, std::move(states));
  steps.Rethrow();
}

}  // namespace tessera
