// SPDX-License-Identifier: MIT
#pragma once

#include <cpl_error.h>

namespace tessera::mitab {

/// Keeps GDAL from printing while it lives. Begins without an error, so that what an earlier call or another file has
/// posted has no say in this one.
class QuietCall {
 public:
  QuietCall() {
    CPLPushErrorHandler(CPLQuietErrorHandler);
    CPLErrorReset();
  }
  ~QuietCall() { CPLPopErrorHandler(); }
  QuietCall(const QuietCall &) = delete;
  QuietCall &operator=(const QuietCall &) = delete;
};

/// Does `work`, which asks nothing of GDAL, and answers its result; null when memory is short.
template <typename Work>
auto Unguarded(const Work &work) -> decltype(work()) {
  CPLErrorReset();
  try {
    return work();
  } catch (...) {
    return nullptr;
  }
}

/// Does `work` and answers its result; what it throws becomes a posted error and the answer `failure`. No exception
/// leaves the library.
template <typename Result, typename Work>
Result Guarded(Result failure, const Work &work) {
  const QuietCall quiet;
  try {
    return work();
  } catch (...) {
    CPLError(CE_Failure, CPLE_OutOfMemory, "The object or file is too large, or memory is short.");
    return failure;
  }
}

}  // namespace tessera::mitab
