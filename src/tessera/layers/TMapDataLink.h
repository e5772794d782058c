// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TObject.h>
#include <tessera/objects/TMapDataLinkEvent.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace tessera {

class TMapDataLink;
class TTessera;

/// The links of one map, which it tells of every change of its layers, objects and selection. Does not own them; links
/// and list may be destroyed in any order.
class TESSERA_CORE_EXPORT TMapDataLinks {
 public:
  TMapDataLinks() = default;
  TMapDataLinks(const TMapDataLinks &) = delete;
  TMapDataLinks &operator=(const TMapDataLinks &) = delete;

  void Add(TMapDataLink *link) { m_links.push_back(link); }
  /// @throws ERangeError beyond the count.
  void Insert(int index, TMapDataLink *link);
  /// Takes out the first entry of the link; nothing when there is none.
  void Remove(const TMapDataLink *link);
  [[nodiscard]] int GetCount() const { return int(m_links.size()); }
  /// @throws ERangeError outside the count.
  [[nodiscard]] TMapDataLink *GetMapDataLink(int index) const;
  void SetMapDataLink(int index, TMapDataLink *link);

  [[nodiscard]] TTessera *GetMap() const { return m_map; }
  void SetMap(TTessera *map) { m_map = map; }

  /// Tells every link, in order, whatever the others throw; the first exception goes on afterwards. A link that is
  /// added meanwhile is not told, nor is one that is taken out before its turn.
  void TraceMapEvent(TMapDataLinkEvent event, TObject *sender);

 private:
  friend class TMapDataLink;

  std::vector<TMapDataLink *> m_links;
  TTessera *m_map = nullptr;
  /// What links that follow this map hold on to: it tells them whether the list is still there.
  std::shared_ptr<TMapDataLinks *const> m_self = std::make_shared<TMapDataLinks *const>(this);
};

/// What a companion control derives from to follow a map. Attach it with TTessera's links: SetMap.
class TESSERA_CORE_EXPORT TMapDataLink : public TObject {
 public:
  /// Leaves its map.
  ~TMapDataLink() override;

  /// Leaves the present map and follows `links`' map from now on, as the last of its links; none when null. Following
  /// the same map again moves the link to the end.
  void SetLinks(TMapDataLinks *links);
  /// None when no map is followed, or it is gone.
  [[nodiscard]] TMapDataLinks *GetLinks() const;
  /// The map that is followed; may be none.
  [[nodiscard]] TTessera *GetMap() const { return GetLinks() ? GetLinks()->GetMap() : nullptr; }
  /// Follows a map, for callers that include TTessera.h.
  template <class Map = TTessera>
  void SetMap(Map *map) {
    SetLinks(map ? map->GetDataLinks() : nullptr);
  }
  void SetMap(std::nullptr_t) { SetLinks(nullptr); }

  /// Called on every change. `sender` is the layer, layer collection or object concerned; `info` is 0.
  virtual void MapEvent(TMapDataLinkEvent event, TObject *sender, int info);
  void RemoveNotify() {}

 private:
  std::weak_ptr<TMapDataLinks *const> m_links;
};

}  // namespace tessera
