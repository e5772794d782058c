// SPDX-License-Identifier: MIT
#pragma once

namespace tessera::detail {

/// Has the processor fetch what will be read soon, where there is a way to tell it.
inline void Prefetch([[maybe_unused]] const void *address) {
#if defined(__GNUC__)
  __builtin_prefetch(address);
#endif
}

}  // namespace tessera::detail
