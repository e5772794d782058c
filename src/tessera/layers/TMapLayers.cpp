// SPDX-License-Identifier: MIT
#include <tessera/base/DebugTrace.h>
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/layers/TMapLayers.h>

#include <QFileInfo>

#include <algorithm>

namespace tessera {
namespace {

constexpr char LayerIndex[] = "Layer";

void TraceMissingFile(const QString &fileName) {
  DebugTrace(QStringLiteral("File \"%S\" does not exists!"), {fileName});
}

bool FileExists(const QString &fileName) {
  return QFileInfo(fileName).isFile();
}

}  // namespace

TMapLayers::~TMapLayers() {
  while (!m_layers.empty()) {
    // The list holds no gap while the layer is destroyed.
    const std::unique_ptr<TMapLayer> layer = std::move(m_layers.front());
    m_layers.erase(m_layers.begin());
  }
}

std::vector<THandle<TMapLayer>> TMapLayers::Handles() const {
  std::vector<THandle<TMapLayer>> handles;
  for (const auto &layer : m_layers) handles.emplace_back(layer.get());
  return handles;
}

void TMapLayers::AnnounceEnd() {
  const THandle<TMapLayers> self(this);
  AllSteps steps;
  for (const auto &layer : Handles()) {
    if (self && layer) steps.Try([&] { layer->AnnounceEnd(); });
  }
  steps.Rethrow();
}

void TMapLayers::SetMap(TMapHost *map) {
  StoreMap(map);
  for (const auto &layer : Handles()) {
    if (layer) layer->SetMap(map);
  }
}

int TMapLayers::IndexOf(const TMapLayer *layer) const {
  const auto found =
      std::find_if(m_layers.begin(), m_layers.end(), [layer](const auto &held) { return held.get() == layer; });
  return found == m_layers.end() ? -1 : int(found - m_layers.begin());
}

TMapLayer *TMapLayers::Enter(std::unique_ptr<TMapLayer> layer, std::size_t at) {
  layer->SetMap(GetMapHost());
  return m_layers.insert(m_layers.begin() + std::ptrdiff_t(at), std::move(layer))->get();
}

std::unique_ptr<TMapLayer> TMapLayers::Take(const TMapLayer *layer) {
  const int index = IndexOf(layer);
  if (index < 0) return nullptr;
  std::unique_ptr<TMapLayer> taken = std::move(m_layers[std::size_t(index)]);
  m_layers.erase(m_layers.begin() + index);
  taken->SetMap(nullptr);
  return taken;
}

TMapLayer *TMapLayers::Add(const QString &fileName, const QString &layerName) {
  auto made = std::make_unique<TMapLayer>();
  made->SetName(layerName);
  const THandle<TMapLayer> layer(Enter(std::move(made), m_layers.size()));
  TMapHost *map = GetMapHost();
  const QString path = fileName.isEmpty() ? fileName : QFileInfo(fileName).absoluteFilePath();
  if (!path.isEmpty() && FileExists(path)) {
    layer->LoadFromFile(path, layerName);
  } else {
    TraceMissingFile(path);
  }
  if (map && layer) map->FireAddLayer(*layer.Get());
  if (map && layer) map->TraceMapEvent(mdlAfterAddLayer, layer.Get());
  return layer.Get();
}

TMapLayer *TMapLayers::Insert(const QString &fileName, int index) {
  const std::size_t at = CheckedIndex(index, m_layers.size() + 1, LayerIndex);
  const THandle<TMapLayer> layer(Enter(std::make_unique<TMapLayer>(), at));
  TMapHost *map = GetMapHost();
  if (!fileName.isEmpty()) {
    if (FileExists(fileName)) {
      layer->LoadFromFile(fileName, QString());
    } else {
      TraceMissingFile(fileName);
    }
  }
  if (map && layer) map->FireAddLayer(*layer.Get());
  return layer.Get();
}

void TMapLayers::Delete(int index) {
  TMapLayer *layer = GetLayer(index);
  const THandle<TMapLayers> self(this);
  const THandle<TMapLayer> doomed(layer);
  TMapHost *map = GetMapHost();
  bool allowDelete = true;
  if (map) map->FireBeforeDelLayer(*layer, true, allowDelete);
  if (!allowDelete) return;
  const auto isThere = [&] { return self && doomed && IndexOf(layer) >= 0; };
  AllSteps steps;
  if (map && isThere()) steps.Try([&] { map->TraceMapEvent(mdlDelLayer, layer); });
  // It keeps its place while handlers are told of its end.
  if (isThere()) steps.Try([&] { layer->AnnounceEnd(); });
  if (isThere()) Take(layer).reset();
  if (map && self) {
    map->DoUpdate(true);
    steps.Try([&] { map->FireAfterDelLayer(); });
  }
  if (map && self) steps.Try([&] { map->TraceMapEvent(mdlAfterDelLayer, this); });
  steps.Rethrow();
}

std::unique_ptr<TMapLayer> TMapLayers::TakeLayer(int index, bool asks) {
  TMapLayer *layer = GetLayer(index);
  const THandle<TMapLayers> self(this);
  const THandle<TMapLayer> doomed(layer);
  TMapHost *map = GetMapHost();
  bool allowDelete = true;
  if (map) map->FireBeforeDelLayer(*layer, asks, allowDelete);
  const auto isThere = [&] { return self && doomed && IndexOf(layer) >= 0; };
  if ((asks && !allowDelete) || !isThere()) return nullptr;
  if (map) map->TraceMapEvent(mdlDelLayer, layer);
  if (!isThere()) return nullptr;
  std::unique_ptr<TMapLayer> taken = Take(layer);
  if (map == nullptr) return taken;
  map->DoUpdate(true);
  GuardedCall([&] { map->FireAfterDelLayer(); });
  if (self) GuardedCall([&] { map->TraceMapEvent(mdlAfterDelLayer, this); });
  return taken;
}

TMapLayer *TMapLayers::PutLayer(int index, std::unique_ptr<TMapLayer> layer) {
  const std::size_t at = CheckedIndex(index, m_layers.size() + 1, LayerIndex);
  const THandle<TMapLayer> put(Enter(std::move(layer), at));
  TMapHost *map = GetMapHost();
  AllSteps steps;
  if (put->GetEditable()) steps.Try([&] { EndEditingBut(*put.Get()); });
  if (map) map->DoUpdate(true);
  if (map && put) steps.Try([&] { map->FireAddLayer(*put.Get()); });
  if (map && put) steps.Try([&] { map->TraceMapEvent(mdlAfterAddLayer, put.Get()); });
  steps.Rethrow();
  return put.Get();
}

void TMapLayers::Clear() {
  const THandle<TMapLayers> self(this);
  AllSteps steps;
  for (const auto &layer : Handles()) {
    if (!self || !layer) continue;
    steps.Try([&] { layer->AnnounceEnd(); });
    if (self && layer) Take(layer.Get()).reset();
  }
  if (self) {
    while (!m_layers.empty()) Take(m_layers.back().get()).reset();
    if (GetMapHost()) GetMapHost()->DoUpdate(true);
  }
  steps.Rethrow();
}

void TMapLayers::UpdateMap(TMapDataLinkEvent event, TObject *sender) {
  if (GetMapHost() == nullptr) return;
  GetMapHost()->DoUpdate(true);
  GetMapHost()->TraceMapEvent(event, sender);
}

void TMapLayers::EndEditingBut(const TMapLayer &layer) {
  AllSteps steps;
  for (const auto &other : Handles()) {
    if (other && other.Get() != &layer && other->GetEditable()) steps.Try([&] { other->SetEditable(false); });
  }
  steps.Rethrow();
}

void TMapLayers::Exchange(int i, int j) {
  std::swap(m_layers[CheckedIndex(i, m_layers.size(), LayerIndex)],
            m_layers[CheckedIndex(j, m_layers.size(), LayerIndex)]);
  UpdateMap(mdlExchangeLayer, this);
}

void TMapLayers::Move(int curIndex, int newIndex) {
  const auto from = m_layers.begin() + std::ptrdiff_t(CheckedIndex(curIndex, m_layers.size(), LayerIndex));
  const auto to = m_layers.begin() + std::ptrdiff_t(CheckedIndex(newIndex, m_layers.size(), LayerIndex));
  if (from < to) {
    std::rotate(from, from + 1, to + 1);
  } else {
    std::rotate(to, from, from + 1);
  }
  UpdateMap(mdlMoveLayer, GetLayer(newIndex));
}

TMapLayer *TMapLayers::GetLayer(int index) const {
  return m_layers[CheckedIndex(index, m_layers.size(), LayerIndex)].get();
}

std::unique_ptr<TMapLayer> TMapLayers::SetLayer(int index, std::unique_ptr<TMapLayer> layer) {
  auto &place = m_layers[CheckedIndex(index, m_layers.size(), LayerIndex)];
  layer->SetMap(GetMapHost());
  place.swap(layer);
  layer->SetMap(nullptr);
  if (GetMapHost()) GetMapHost()->DoUpdate(true);
  return layer;
}

TMapLayer *TMapLayers::Search(const QString &name) const {
  if (GetMapHost() == nullptr) return nullptr;
  const QString folded = name.toCaseFolded();
  for (const auto &layer : m_layers) {
    if (QString::localeAwareCompare(layer->GetName().toCaseFolded(), folded) == 0) return layer.get();
  }
  return nullptr;
}

TMapLayer *TMapLayers::GetEditableLayer() const {
  for (const auto &layer : m_layers) {
    if (layer->GetEditable()) return layer.get();
  }
  return nullptr;
}

}  // namespace tessera
