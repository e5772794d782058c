// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <cstdint>

namespace tessera::detail {

/// Counts the changes of any object's vertices and bounds, so that what was worked out from them can be told stale.
class TESSERA_CORE_EXPORT GeometryVersion {
 public:
  static void Change() { ++s_version; }
  [[nodiscard]] static std::uint64_t Get() { return s_version; }

 private:
  static std::uint64_t s_version;
};

}  // namespace tessera::detail
