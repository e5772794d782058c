// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapLayer.h>

#include <memory>
#include <span>
#include <vector>

namespace tessera {

/// The layers of a map, in drawing order: the first lies at the bottom. Owns them.
class TESSERA_CORE_EXPORT TMapLayers : public TObject {
 public:
  TMapLayers() = default;
  ~TMapLayers() override;

  /// Appends a layer of the given name and loads the file into it. When there is no such file the layer stays empty,
  /// and a diagnostic notice says so; nothing is shown and nothing thrown.
  TMapLayer *Add(const QString &fileName, const QString &layerName);
  /// Inserts a layer before `index` and loads the file into it, which names it. Unlike Add it takes the file name as it
  /// stands and tells no data link, which is intended. @throws ERangeError beyond the count.
  TMapLayer *Insert(const QString &fileName, int index);
  /// Destroys a layer unless a handler of OnBeforeDelLayer forbids it. @throws ERangeError outside the count.
  void Delete(int index);
  /// Destroys all layers, in order; nobody can forbid it and no data link is told.
  void Clear();
  /// @throws ERangeError outside the count.
  void Exchange(int i, int j);
  /// Moves a layer so that it stands at `newIndex`. @throws ERangeError outside the count.
  void Move(int curIndex, int newIndex);

  [[nodiscard]] int GetCount() const { return int(m_layers.size()); }
  /// @throws ERangeError outside the count; so do First and Last of an empty map.
  [[nodiscard]] TMapLayer *GetLayer(int index) const;
  /// Puts a layer into the place of another, which is handed back.
  std::unique_ptr<TMapLayer> SetLayer(int index, std::unique_ptr<TMapLayer> layer);
  [[nodiscard]] TMapLayer *First() const { return GetLayer(0); }
  [[nodiscard]] TMapLayer *Last() const { return GetLayer(GetCount() - 1); }
  [[nodiscard]] std::span<const std::unique_ptr<TMapLayer>> Items() const { return m_layers; }
  /// The first layer of that name, letter case aside; none when there is none, or no map.
  [[nodiscard]] TMapLayer *Search(const QString &name) const;
  /// The first editable layer, or none.
  [[nodiscard]] TMapLayer *GetEditableLayer() const;

  [[nodiscard]] TMapHost *GetMapHost() const { return m_map; }
  void SetMap(TMapHost *map) { m_map = map; }

 private:
  std::unique_ptr<TMapLayer> MakeLayer() const;
  void UpdateMap(TMapDataLinkEvent event, TObject *sender);

  std::vector<std::unique_ptr<TMapLayer>> m_layers;
  TMapHost *m_map = nullptr;
};

}  // namespace tessera
