// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>

#include <functional>
#include <utility>

namespace tessera::apps {

/// Calls a function at every notice of a map, as long as both live.
class MapFollower : public TMapDataLink {
 public:
  using Handler = std::function<void(TMapDataLinkEvent event, TObject *sender)>;

  MapFollower(TTessera &map, Handler handler) : m_handler(std::move(handler)) { SetMap(&map); }

  void MapEvent(TMapDataLinkEvent event, TObject *sender, int /*info*/) override { m_handler(event, sender); }

 private:
  Handler m_handler;
};

}  // namespace tessera::apps
