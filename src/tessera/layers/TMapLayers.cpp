// SPDX-License-Identifier: MIT
#include <tessera/base/DebugTrace.h>
#include <tessera/base/Exceptions.h>
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
  Clear();
}

std::unique_ptr<TMapLayer> TMapLayers::MakeLayer() const {
  auto layer = std::make_unique<TMapLayer>();
  layer->SetMap(m_map);
  return layer;
}

TMapLayer *TMapLayers::Add(const QString &fileName, const QString &layerName) {
  TMapLayer *layer = m_layers.emplace_back(MakeLayer()).get();
  layer->SetName(layerName);
  const QString path = fileName.isEmpty() ? fileName : QFileInfo(fileName).absoluteFilePath();
  if (!path.isEmpty() && FileExists(path)) {
    layer->LoadFromFile(path, layerName);
  } else {
    TraceMissingFile(path);
  }
  if (m_map) {
    m_map->FireAddLayer(*layer);
    m_map->TraceMapEvent(mdlAfterAddLayer, layer);
  }
  return layer;
}

TMapLayer *TMapLayers::Insert(const QString &fileName, int index) {
  const std::size_t at = CheckedIndex(index, m_layers.size() + 1, LayerIndex);
  TMapLayer *layer = m_layers.insert(m_layers.begin() + std::ptrdiff_t(at), MakeLayer())->get();
  if (!fileName.isEmpty()) {
    if (FileExists(fileName)) {
      layer->LoadFromFile(fileName, QString());
    } else {
      TraceMissingFile(fileName);
    }
  }
  if (m_map) m_map->FireAddLayer(*layer);
  return layer;
}

void TMapLayers::Delete(int index) {
  TMapLayer *layer = GetLayer(index);
  if (m_map) {
    bool allowDelete = true;
    m_map->FireBeforeDelLayer(*layer, true, allowDelete);
    if (!allowDelete) return;
    m_map->TraceMapEvent(mdlDelLayer, layer);
  }
  // The layer is destroyed while it still has its place, where those who are told meanwhile may look.
  std::default_delete<TMapLayer>()(layer);
  static_cast<void>(m_layers[std::size_t(index)].release());
  m_layers.erase(m_layers.begin() + index);
  if (m_map) {
    m_map->DoUpdate(true);
    m_map->FireAfterDelLayer();
    m_map->TraceMapEvent(mdlAfterDelLayer, this);
  }
}

void TMapLayers::Clear() {
  while (!m_layers.empty()) {
    // The list holds no gap while the layer is destroyed.
    const std::unique_ptr<TMapLayer> layer = std::move(m_layers.front());
    m_layers.erase(m_layers.begin());
  }
  if (m_map) m_map->DoUpdate(true);
}

void TMapLayers::UpdateMap(TMapDataLinkEvent event, TObject *sender) {
  if (m_map == nullptr) return;
  m_map->DoUpdate(true);
  m_map->TraceMapEvent(event, sender);
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
  m_layers[CheckedIndex(index, m_layers.size(), LayerIndex)].swap(layer);
  return layer;
}

TMapLayer *TMapLayers::Search(const QString &name) const {
  if (m_map == nullptr) return nullptr;
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
