// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/detail/IndexTree.h>

#include <memory>

namespace tessera {
class TMapLayer;
}

namespace tessera::detail {

/// The children of a cell as long as nobody has asked for them: what they will be made of.
struct IndexBelow {
  std::shared_ptr<const IndexTree> tree;
  IndexTree::Cell cell;
  TMapLayer *layer;
  int level;  // of the cell itself
};

}  // namespace tessera::detail
