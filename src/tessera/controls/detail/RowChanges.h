// SPDX-License-Identifier: MIT
#pragma once

#include <span>
#include <vector>

namespace tessera {
class TCustomMapObject;
}

namespace tessera::detail {

/// Some rows that follow each other.
struct RowRun {
  int first = 0;
  int count = 0;
  bool operator==(const RowRun &) const = default;
};

/// How one list of rows becomes another, each of which holds a row at most once. The three steps in their order.
struct RowChanges {
  std::vector<RowRun> removed;  ///< the last first
  std::vector<TCustomMapObject *>
      reordered;                 ///< all rows that are left, in their new order; empty when it is the old one
  std::vector<RowRun> inserted;  ///< the first first, as they stand in the new list
};

/// Rows are told apart by their addresses, and never looked at. Cost: linear; rows at both ends that are the same are
/// just compared.
[[nodiscard]] RowChanges FindRowChanges(std::span<TCustomMapObject *const> before,
                                        std::span<TCustomMapObject *const> after);

}  // namespace tessera::detail
