// SPDX-License-Identifier: MIT
#include <tessera/controls/StyleNames.h>
#include <tessera/controls/TObjectProperties.h>

namespace tessera {

QStringList PenStyleNames() {
  return {TObjectProperties::tr("Solid"),        TObjectProperties::tr("Dashes"),
          TObjectProperties::tr("Dots"),         TObjectProperties::tr("Dashes and dots"),
          TObjectProperties::tr("Dash dot dot"), TObjectProperties::tr("None"),
          TObjectProperties::tr("Inside frame")};
}

QStringList BrushStyleNames() {
  return {TObjectProperties::tr("Solid"),
          TObjectProperties::tr("None"),
          TObjectProperties::tr("Horizontal lines"),
          TObjectProperties::tr("Vertical lines"),
          TObjectProperties::tr("Falling lines"),
          TObjectProperties::tr("Rising lines"),
          TObjectProperties::tr("Squares"),
          TObjectProperties::tr("Diamonds")};
}

}  // namespace tessera
