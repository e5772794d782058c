// SPDX-License-Identifier: MIT
#pragma once

#include <QFlags>

#include <cstdint>

namespace tessera {

/// The keys and mouse buttons that are held while something happens.
enum TShiftStateFlag : std::uint8_t {
  ssShift = 1,
  ssAlt = 2,
  ssCtrl = 4,
  ssLeft = 8,
  ssRight = 16,
  ssMiddle = 32,
  ssDouble = 64  ///< The second press of a double click.
};
Q_DECLARE_FLAGS(TShiftState, TShiftStateFlag)
Q_DECLARE_OPERATORS_FOR_FLAGS(TShiftState)

}  // namespace tessera
