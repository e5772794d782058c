// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TMapHost.h>

namespace tessera {

/// Begins a batch of updates of a map and ends it, with a new picture, however the block is left. @pre the map outlives
/// the scope; so for the ones below.
class TUpdateScope {
 public:
  explicit TUpdateScope(TMapUpdates &map) : m_map(map) { m_map.BeginUpdate(); }
  ~TUpdateScope() { m_map.EndUpdate(true); }
  TUpdateScope(const TUpdateScope &) = delete;
  TUpdateScope &operator=(const TUpdateScope &) = delete;

 private:
  TMapUpdates &m_map;
};

/// Marks a map as one that a layer is being loaded into, in a batch of updates.
class TLoadingScope {
 public:
  explicit TLoadingScope(TMapUpdates &map) : m_map(map) {
    m_map.BeginUpdate();
    m_map.SetIsLoading(true);
  }
  ~TLoadingScope() {
    m_map.EndUpdate(true);
    m_map.SetIsLoading(false);
  }
  TLoadingScope(const TLoadingScope &) = delete;
  TLoadingScope &operator=(const TLoadingScope &) = delete;

 private:
  TMapUpdates &m_map;
};

/// Tells of the progress of something long, and of its end however the block is left. What a handler throws at the end
/// ends in the message sink.
class TESSERA_CORE_EXPORT TProgressScope {
 public:
  TProgressScope(TMapProgress &map, int min, int max, const QString &caption) : m_map(map) {
    m_map.StartProgress(min, max, caption);
  }
  ~TProgressScope();
  TProgressScope(const TProgressScope &) = delete;
  TProgressScope &operator=(const TProgressScope &) = delete;

  void Show(int position) { m_map.ShowProgress(position); }

 private:
  TMapProgress &m_map;
};

}  // namespace tessera
