// SPDX-License-Identifier: MIT
#pragma once

#include <malloc.h>

namespace tessera::bench {

/// The bytes that the program has allocated and not freed, with the allocator's own overhead.
[[nodiscard]] inline std::size_t HeapUse() {
  const auto info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

}  // namespace tessera::bench
