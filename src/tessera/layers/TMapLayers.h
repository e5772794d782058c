// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapLayer.h>

#include <memory>
#include <span>
#include <vector>

namespace tessera {

/// The layers of a map, in drawing order: the first lies at the bottom. Owns them. Handlers may do anything meanwhile:
/// a layer that one of them has destroyed comes back as none.
class TESSERA_CORE_EXPORT TMapLayers : public TObject, public TMapMember {
 public:
  TMapLayers() = default;
  /// Destroys the layers, in order.
  ~TMapLayers() override;
  /// Tells handlers of the end of every layer, for a map that is closing.
  void AnnounceEnd();

  /// Appends a layer of the given name and loads the file into it. When there is no such file the layer stays empty,
  /// and a diagnostic notice says so; nothing is shown and nothing thrown.
  TMapLayer *Add(const QString &fileName, const QString &layerName);
  /// Inserts a layer before `index` and loads the file into it, which names it. Unlike Add it takes the file name as it
  /// stands and tells no data link, which is intended. @throws ERangeError beyond the count.
  TMapLayer *Insert(const QString &fileName, int index);
  /// Destroys a layer unless a handler of OnBeforeDelLayer forbids it. @throws ERangeError outside the count.
  void Delete(int index);
  /// Takes out a layer with all it has, to be put back; deselected, and on no map. None when a handler of
  /// OnBeforeDelLayer forbids it, who is asked only if `asks`. What handlers throw before that goes on, and the layer
  /// stays; what they throw afterwards ends in the message sink. @throws ERangeError outside the count.
  std::unique_ptr<TMapLayer> TakeLayer(int index, bool asks);
  /// Inserts a layer before `index`, as it is; if it is being edited, no other is from now on. OnAddLayer and
  /// mdlAfterAddLayer follow. @throws ERangeError beyond the count.
  TMapLayer *PutLayer(int index, std::unique_ptr<TMapLayer> layer);
  /// Destroys all layers, in order; nobody can forbid it and no data link is told. What handlers add meanwhile goes as
  /// well, without an event.
  void Clear();
  /// @throws ERangeError outside the count.
  void Exchange(int i, int j);
  /// Moves a layer so that it stands at `newIndex`. @throws ERangeError outside the count.
  void Move(int curIndex, int newIndex);

  [[nodiscard]] int GetCount() const { return int(m_layers.size()); }
  /// @throws ERangeError outside the count; so do First and Last of an empty map.
  [[nodiscard]] TMapLayer *GetLayer(int index) const;
  /// Puts a layer into the place of another, which is handed back and on no map any more.
  std::unique_ptr<TMapLayer> SetLayer(int index, std::unique_ptr<TMapLayer> layer);
  [[nodiscard]] TMapLayer *First() const { return GetLayer(0); }
  [[nodiscard]] TMapLayer *Last() const { return GetLayer(GetCount() - 1); }
  [[nodiscard]] std::span<const std::unique_ptr<TMapLayer>> Items() const { return m_layers; }
  /// The first layer of that name, letter case aside; none when there is none, or no map.
  [[nodiscard]] TMapLayer *Search(const QString &name) const;
  /// The first editable layer, or none.
  [[nodiscard]] TMapLayer *GetEditableLayer() const;

  /// Position of a layer; -1 when it is not here.
  [[nodiscard]] int IndexOf(const TMapLayer *layer) const;
  /// Ends the editing of every layer but this one.
  void EndEditingBut(const TMapLayer &layer);
  /// Puts all layers on a map.
  void SetMap(TMapHost *map);

 private:
  TMapLayer *Enter(std::unique_ptr<TMapLayer> layer, std::size_t at);
  std::unique_ptr<TMapLayer> Take(const TMapLayer *layer);
  [[nodiscard]] std::vector<THandle<TMapLayer>> Handles() const;
  void UpdateMap(TMapDataLinkEvent event, TObject *sender);

  std::vector<std::unique_ptr<TMapLayer>> m_layers;
};

}  // namespace tessera
