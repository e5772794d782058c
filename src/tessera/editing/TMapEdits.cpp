// SPDX-License-Identifier: MIT
// Edits of objects.
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/TEditScope.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/editing/detail/ObjectCommands.h>

#include <algorithm>
#include <optional>

namespace tessera {
namespace {

using Handles = std::vector<THandle<TCustomMapObject>>;

Handles HandlesOf(TMapEdits::Objects objects) {
  Handles handles;
  handles.reserve(objects.size());
  for (TCustomMapObject *object : objects) handles.emplace_back(object);
  return handles;
}

/// Those that are in the layer now; none when it is gone.
Handles ThoseIn(const THandle<TMapLayer> &layer, const Handles &objects) {
  Handles inside;
  for (const auto &object : objects) {
    if (layer && object && object->GetObjectLayer() == layer.Get()) inside.push_back(object);
  }
  return inside;
}

}  // namespace

bool TMapEdits::IsRecording() const {
  return detail::NoteBefore(m_map).history != nullptr;
}

TCustomMapObject *TMapEdits::AddObject(TMapLayer &layer, std::unique_ptr<TCustomMapObject> object) {
  const detail::BeforeEdit before = detail::NoteBefore(m_map);
  const THandle<TMapLayer> handle(&layer);
  const Handles added{THandle<TCustomMapObject>(object.get())};
  AllSteps steps;
  steps.Try([&] { layer.AddObject(std::move(object), true); });
  Handles inside = ThoseIn(handle, added);
  if (!inside.empty()) detail::Record<detail::PresenceCommand>(before, tr("add object"), layer, inside);
  steps.Rethrow();
  return inside.empty() ? nullptr : inside.front().Get();
}

void TMapEdits::Put(TMapLayer &layer, std::vector<TTakenObject> objects, const QString &text) const {
  const detail::BeforeEdit before = detail::NoteBefore(m_map);
  const THandle<TMapLayer> handle(&layer);
  Handles put;
  for (const TTakenObject &one : objects) put.emplace_back(one.object.get());
  AllSteps steps;
  steps.Try([&] { layer.PutObjects(std::move(objects)); });
  const Handles inside = ThoseIn(handle, put);
  if (!inside.empty()) detail::Record<detail::PresenceCommand>(before, text, layer, inside);
  steps.Rethrow();
}

void TMapEdits::PutObjects(TMapLayer &layer, std::vector<TTakenObject> objects) {
  const auto text = tr("add objects (%n)", nullptr, int(objects.size()));
  Put(layer, std::move(objects), text);
}

int TMapEdits::DeleteObjectsOf(TMapLayer &layer, Objects objects) const {
  const detail::BeforeEdit before = detail::NoteBefore(m_map);
  if (!before.history) return layer.DeleteObjects(objects);
  const THandle<TMapLayer> handle(&layer);
  std::vector<TTakenObject> taken = layer.TakeObjects(objects);
  const std::size_t count = taken.size();
  if (count > 0) detail::Record<detail::PresenceCommand>(before, DeletionText(count), handle, std::move(taken));
  return int(count);
}

QString TMapEdits::DeletionText(std::size_t count) {
  return tr("delete objects (%n)", nullptr, int(count));
}

int TMapEdits::DeleteObjects(Objects objects) {
  std::vector<THandle<TMapLayer>> layers;
  for (TCustomMapObject *object : objects) {
    const auto isKnown = [object](const auto &layer) { return layer.Get() == object->GetObjectLayer(); };
    if (object->GetObjectLayer() == nullptr || std::any_of(layers.begin(), layers.end(), isKnown)) continue;
    layers.emplace_back(object->GetLayer());
  }
  const Handles handles = HandlesOf(objects);
  std::optional<TEditScope> oneStep;
  if (layers.size() > 1) oneStep.emplace(m_map, DeletionText(objects.size()));
  int count = 0;
  AllSteps steps;
  for (const auto &layer : layers) {
    std::vector<TCustomMapObject *> doomed;
    for (const auto &object : ThoseIn(layer, handles)) doomed.push_back(object.Get());
    if (layer) steps.Try([&] { count += DeleteObjectsOf(*layer.Get(), doomed); });
  }
  steps.Rethrow();
  return count;
}

void TMapEdits::ReorderObject(TMapLayer &layer, int curIndex, int newIndex) {
  const detail::BeforeEdit before = detail::NoteBefore(m_map);
  const THandle<TCustomMapObject> object(layer.GetObjects(curIndex));
  static_cast<void>(layer.GetObjects(newIndex));
  AllSteps steps;
  steps.Try([&] { layer.MoveObject(curIndex, newIndex); });
  if (object && curIndex != newIndex) {
    detail::Record<detail::ObjectOrderCommand>(before, tr("move object in the order"), *object.Get(), curIndex);
  }
  steps.Rethrow();
}

void TMapEdits::ChangeObjects(Objects objects, TObjectAspects aspects, const QString &text,
                              const std::function<void(TCustomMapObject &object)> &change) {
  const detail::BeforeEdit before = detail::NoteBefore(m_map);
  std::vector<detail::ObjectState> states;
  bool isAnySeen = false;
  AllSteps steps;
  for (const auto &object : HandlesOf(objects)) {
    if (!object) continue;
    isAnySeen = isAnySeen || detail::IsSeen(*object.Get(), aspects);
    if (before.history) states.emplace_back(*object.Get(), aspects);
    steps.Try([&] { change(*object.Get()); });
    const bool isMoved = aspects.testFlag(TObjectAspect::Geometry) && object;
    if (isMoved) steps.Try([&] { detail::TellOfGeometry(*object.Get()); });
  }
  if (!states.empty()) detail::Record<detail::StateCommand>(before, text, std::move(states));
  if (isAnySeen) detail::UpdateMapOf(before.layers);
  steps.Rethrow();
}

void TMapEdits::MoveObjects(Objects objects, double dx, double dy) {
  ChangeObjects(objects, TObjectAspect::Geometry, tr("move objects (%n)", nullptr, int(objects.size())),
                [dx, dy](TCustomMapObject &object) { object.MoveBy(dx, dy); });
}

void TMapEdits::TransformObjects(Objects objects, const TMapTransform &transform) {
  ChangeObjects(objects, TObjectAspect::Geometry, tr("transform objects (%n)", nullptr, int(objects.size())),
                [&transform](TCustomMapObject &object) { object.Transform(transform); });
}

void TMapEdits::SetGeometry(TCustomMapObject &object, TParts &parts) {
  const detail::BeforeEdit before = detail::NoteBefore(m_map);
  std::vector<detail::ObjectState> states;
  states.emplace_back(object, parts);
  AllSteps steps;
  steps.Try([&] { states.front().TellOfGeometry(); });
  detail::Record<detail::StateCommand>(before, tr("reshape object"), std::move(states));
  detail::UpdateMapOf(before.layers);
  steps.Rethrow();
}

void TMapEdits::SetStyle(Objects objects, const TObjectStylePtr &style) {
  ChangeObjects(objects, TObjectAspect::Style, tr("change style of objects (%n)", nullptr, int(objects.size())),
                [&style](TCustomMapObject &object) { object.SetStyle(style); });
}

void TMapEdits::SetValue(TCustomMapObject &object, int field, const TDataValue &value) {
  if (object.GetFields().GetFields(field).GetValue() == value) return;
  TCustomMapObject *const only = &object;
  ChangeObjects({&only, 1}, TObjectAspect::Values, tr("change value"),
                [&](TCustomMapObject &changed) { changed.GetFields().GetFields(field).SetValue(value); });
}

}  // namespace tessera
