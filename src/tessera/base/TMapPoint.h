// SPDX-License-Identifier: MIT
#pragma once

namespace tessera {

/// A vertex in map units; y grows upwards.
struct TMapPoint {
  double X;
  double Y;

  bool operator==(const TMapPoint &) const = default;
};

}  // namespace tessera
