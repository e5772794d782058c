// SPDX-License-Identifier: MIT
// Taking objects out of a layer and putting them back, one or many at once.
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/layers/detail/ObjectStore.h>
#include <tessera/objects/TMapObjectsList.h>

#include <algorithm>

namespace tessera {
namespace {

constexpr char ObjectIndex[] = "Object";

using Handles = std::vector<THandle<TCustomMapObject>>;

}  // namespace

Handles TMapLayer::AskToRemove(std::span<TCustomMapObject *const> objects) {
  Handles asked;
  for (TCustomMapObject *object : m_objects->InOrder(objects)) asked.emplace_back(object);
  Handles allowed;
  const THandle<TMapLayer> self(this);
  for (const auto &object : asked) {
    bool canRemove = true;
    if (!self) return {};
    if (GetMapHost() && object) GetMapHost()->FireBeforeRemoveObject(*object.Get(), canRemove);
    if (canRemove && object) allowed.push_back(object);
  }
  return self ? allowed : Handles();
}

void TMapLayer::TellOfRemoval(std::size_t count) {
  const THandle<TMapLayer> self(this);
  AllSteps steps;
  for (std::size_t i = 0; i < count && self && GetMapHost(); ++i) {
    steps.Try([this] { GetMapHost()->FireAfterRemoveObject(); });
  }
  if (self) UpdateMap();
  steps.Rethrow();
}

std::vector<TTakenObject> TMapLayer::TakeObjects(std::span<TCustomMapObject *const> objects) {
  const THandle<TMapLayer> self(this);
  const Handles doomed = AskToRemove(objects);
  AllSteps steps;
  for (const auto &object : doomed) {
    if (self && object && GetMapHost()) steps.Try([&] { GetMapHost()->GetSelection()->Leave(*object.Get()); });
  }
  steps.Rethrow();
  std::vector<TTakenObject> taken;
  if (!self) return taken;
  for (const auto &object : doomed) {
    const int index = IndexOf(object.Get());
    if (index >= 0) taken.push_back({index, nullptr});
  }
  std::sort(taken.begin(), taken.end(), [](const auto &a, const auto &b) { return a.index < b.index; });
  std::vector<TCustomMapObject *> inOrder;
  inOrder.reserve(taken.size());
  for (const TTakenObject &one : taken) inOrder.push_back(GetObjects(one.index));
  for (std::size_t i = 0; i < taken.size(); ++i) taken[i].object = TakeSilently(*inOrder[i]);
  for (const TTakenObject &one : taken) {
    if (self && GetMapHost()) GuardedCall([&] { GetMapHost()->TraceMapEvent(mdlRemoveObject, one.object.get()); });
  }
  if (self) GuardedCall([&] { TellOfRemoval(taken.size()); });
  return taken;
}

std::unique_ptr<TCustomMapObject> TMapLayer::TakeObject(TCustomMapObject *object) {
  std::vector<TTakenObject> taken = TakeObjects({&object, 1});
  return taken.empty() ? nullptr : std::move(taken.front().object);
}

int TMapLayer::DeleteObjects(std::span<TCustomMapObject *const> objects) {
  const THandle<TMapLayer> self(this);
  const Handles doomed = AskToRemove(objects);
  AllSteps steps;
  std::size_t count = 0;
  // About from the last to the first.
  for (auto object = doomed.rbegin(); object != doomed.rend() && self; ++object) {
    if (!*object || (*object)->GetObjectLayer() != this) continue;
    steps.Try([&] { Destroy(*object->Get()); });
    if (!*object) ++count;
  }
  if (self) steps.Try([&] { TellOfRemoval(count); });
  steps.Rethrow();
  return int(count);
}

void TMapLayer::TellOfPut(TCustomMapObject *object) {
  TMapHost *map = GetMapHost();
  if (map == nullptr) return;
  const THandle<TMapLayer> self(this);
  AllSteps steps;
  steps.Try([&] { map->FireAddObject(*object); });
  if (self) steps.Try([this] { TraceToMap(mdlAddObject); });
  steps.Rethrow();
}

TCustomMapObject *TMapLayer::PutObject(int index, std::unique_ptr<TCustomMapObject> object) {
  const std::size_t at = CheckedIndex(index, m_objects->GetCount() + 1, ObjectIndex);
  const THandle<TCustomMapObject> put(object.get());
  const THandle<TMapLayer> self(this);
  object->SetLayer(this);
  m_objects->Insert(at, std::move(object));
  UpdateMap();
  TellOfPut(put.Get());
  return put.Get();
}

void TMapLayer::PutObjects(std::vector<TTakenObject> taken) {
  std::size_t count = m_objects->GetCount();
  for (const TTakenObject &one : taken) CheckedIndex(one.index, ++count, ObjectIndex);
  Handles put;
  std::vector<std::pair<std::size_t, std::unique_ptr<TCustomMapObject>>> placed;
  for (TTakenObject &one : taken) {
    one.object->SetLayer(this);
    put.emplace_back(one.object.get());
    placed.emplace_back(std::size_t(one.index), std::move(one.object));
  }
  m_objects->Merge(std::move(placed));
  UpdateMap();
  const THandle<TMapLayer> self(this);
  AllSteps steps;
  for (const auto &object : put) {
    if (self && object) steps.Try([&] { TellOfPut(object.Get()); });
  }
  steps.Rethrow();
}

void TMapLayer::MoveObject(int curIndex, int newIndex) {
  const std::size_t from = CheckedIndex(curIndex, m_objects->GetCount(), ObjectIndex);
  const std::size_t to = CheckedIndex(newIndex, m_objects->GetCount(), ObjectIndex);
  m_objects->Move(from, to);
  UpdateMap();
  if (GetMapHost()) GetMapHost()->TraceMapEvent(mdlMoveObject, GetObjects(newIndex));
}

}  // namespace tessera
