// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

#include <functional>
#include <span>
#include <vector>

namespace tessera::detail {

/// A stretch of a list of objects: some that stood in a row in the list as it was, or some that are new.
struct ListRun {
  std::size_t first = 0;  ///< In the list as it was.
  std::size_t count = 0;  ///< 0 for new ones.
  std::vector<TCustomMapObject *> added;
};

/// Of what runs a list consists, seen from what it was. Cost: linear, with a table of the old list where the order has
/// changed.
[[nodiscard]] std::vector<ListRun> FindListRuns(std::span<const TCustomMapObject *const> before,
                                                std::span<TCustomMapObject *const> after,
                                                const std::function<bool(const TCustomMapObject *)> &isChanged);

}  // namespace tessera::detail
