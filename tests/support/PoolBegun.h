// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/detail/Pool.h>

namespace tessera {

/// A pool that is past what it leaves to the heap.
struct PoolBegun : detail::Pool {
  PoolBegun() {
    void *piece = nullptr;
    while (piece == nullptr) piece = Take(1000, Shelf::Figures);
    Release(piece);
  }
};

}  // namespace tessera
