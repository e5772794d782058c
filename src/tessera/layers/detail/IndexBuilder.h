// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/detail/IndexTree.h>

#include <memory>

namespace tessera {
class TMapLayer;
}

namespace tessera::detail {

/// Divides a cell of the spatial index with these ids, of which those that the layer has count. None when the division
/// ends before it begins.
[[nodiscard]] std::unique_ptr<IndexTree> BuildIndexTree(const TMapLayer *layer, const TCellBounds &bounds,
                                                        std::span<const std::uint32_t> ids);

}  // namespace tessera::detail
