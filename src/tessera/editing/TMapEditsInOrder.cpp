// SPDX-License-Identifier: MIT
// Edits of several objects that keep their order: copies of them, and other places in the order of their layers.
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/TEditScope.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/layers/TSelection.h>

#include <algorithm>
#include <optional>

namespace tessera {
namespace {

using OwnedObjects = std::vector<std::unique_ptr<TCustomMapObject>>;

/// Objects of one layer, in its order, each once.
struct InLayer {
  THandle<TMapLayer> layer;
  std::vector<std::pair<int, THandle<TCustomMapObject>>> objects;
};

/// Objects by their layers, in the order in which these come up. Those in no layer are left out.
std::vector<InLayer> ByLayer(TMapEdits::Objects objects) {
  std::vector<InLayer> groups;
  for (TCustomMapObject *object : objects) {
    TMapLayer *layer = object->GetLayer();
    if (layer == nullptr) continue;
    auto group = std::find_if(groups.begin(), groups.end(), [&](const auto &one) { return one.layer.Get() == layer; });
    if (group == groups.end()) group = groups.insert(groups.end(), {THandle<TMapLayer>(layer), {}});
    group->objects.emplace_back(layer->IndexOf(object), object);
  }
  for (InLayer &group : groups) {
    auto &of = group.objects;
    std::sort(of.begin(), of.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    of.erase(std::unique(of.begin(), of.end(), [](const auto &a, const auto &b) { return a.first == b.first; }),
             of.end());
  }
  return groups;
}

/// The columns of a layer with those of the values that they can take, found by their names.
TDataFields FittedTo(const TMapLayer &layer, const TDataFields &values) {
  TDataFields fitted;
  fitted.Assign(layer.GetFields());
  for (int i = 0; i < fitted.GetCount(); ++i) {
    TDataField column = fitted.GetFields(i);
    const std::optional<TDataFieldView> source = values.FieldByName(column.GetName());
    if (!source) continue;
    if (source->GetDataType() == column.GetDataType()) {
      column.SetValue(source->GetValue());
    } else if (column.GetDataType() == TDataType::dtString) {
      column.SetAsString(source->GetAsString());
    }
  }
  return fitted;
}

void Select(TMapHost *map, const std::vector<THandle<TCustomMapObject>> &objects) {
  if (map == nullptr) return;
  const THandle<TObjectSelection> selection(map->GetSelection());
  selection->Clear();
  for (const auto &object : objects) {
    if (selection && object && object->GetMapHost() == map) selection->Add(object.Get());
  }
}

}  // namespace

void TMapEdits::PutOnTop(TMapLayer &layer, OwnedObjects objects, const QString &text) const {
  std::vector<TTakenObject> placed;
  int index = layer.GetObjectCount();
  for (auto &object : objects) placed.push_back({index++, std::move(object)});
  Put(layer, std::move(placed), text);
}

void TMapEdits::PasteObjects(TMapLayer &layer, OwnedObjects objects) {
  if (objects.empty()) return;
  std::vector<THandle<TCustomMapObject>> pasted;
  for (const auto &object : objects) {
    object->SetFields(FittedTo(layer, std::as_const(*object).GetFields()));
    pasted.emplace_back(object.get());
  }
  const auto text = tr("paste objects (%n)", nullptr, int(objects.size()));
  AllSteps steps;
  steps.Try([&] { PutOnTop(layer, std::move(objects), text); });
  steps.Try([&] { Select(m_map, pasted); });
  steps.Rethrow();
}

void TMapEdits::DuplicateObjects(Objects objects, double dx, double dy) {
  if (objects.empty()) return;
  const auto text = tr("duplicate objects (%n)", nullptr, int(objects.size()));
  const TEditScope oneStep(m_map, text);
  std::vector<THandle<TCustomMapObject>> made;
  AllSteps steps;
  for (const InLayer &group : ByLayer(objects)) {
    OwnedObjects copies;
    for (const auto &[index, object] : group.objects) {
      if (!object) continue;
      copies.push_back(object->Clone());
      copies.back()->MoveBy(dx, dy);
      made.emplace_back(copies.back().get());
    }
    if (group.layer) steps.Try([&] { PutOnTop(*group.layer.Get(), std::move(copies), text); });
  }
  steps.Try([&] { Select(m_map, made); });
  steps.Rethrow();
}

void TMapEdits::BringToFront(Objects objects) {
  const TEditScope oneStep(m_map, tr("bring objects to the front (%n)", nullptr, int(objects.size())));
  for (const InLayer &group : ByLayer(objects)) {
    int place = group.layer ? group.layer->GetObjectCount() : 0;
    // From the last on: then no other has moved yet when its turn comes.
    for (auto one = group.objects.rbegin(); one != group.objects.rend(); ++one)
      MoveTo(group.layer, one->second, --place);
  }
}

void TMapEdits::SendToBack(Objects objects) {
  const TEditScope oneStep(m_map, tr("send objects to the back (%n)", nullptr, int(objects.size())));
  for (const InLayer &group : ByLayer(objects)) {
    int place = 0;
    for (const auto &one : group.objects) MoveTo(group.layer, one.second, place++);
  }
}

void TMapEdits::MoveTo(const THandle<TMapLayer> &layer, const THandle<TCustomMapObject> &object, int newIndex) {
  const int curIndex = layer && object ? layer->IndexOf(object.Get()) : -1;
  if (curIndex >= 0 && curIndex != newIndex && newIndex >= 0 && newIndex < layer->GetObjectCount()) {
    ReorderObject(*layer.Get(), curIndex, newIndex);
  }
}

}  // namespace tessera
