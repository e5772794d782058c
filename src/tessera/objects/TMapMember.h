// SPDX-License-Identifier: MIT
#pragma once

namespace tessera {

class TMapHost;
class TTessera;

/// Something that belongs to a map: a layer, the collection of layers, a list of objects. What stands in the map's
/// place need not be the control; an object knows its map by the same words.
class TMapMember {
 public:
  /// The map; none before it belongs to one and after that is gone.
  [[nodiscard]] TMapHost *GetMapHost() const { return m_map; }
  /// The map control, for callers that include TTessera.h.
  template <class Map = TTessera>
  [[nodiscard]] Map *GetMap() const {
    return static_cast<Map *>(m_map);
  }

 protected:
  TMapMember() = default;
  ~TMapMember() = default;
  void StoreMap(TMapHost *map) { m_map = map; }

 private:
  TMapHost *m_map = nullptr;
};

}  // namespace tessera
