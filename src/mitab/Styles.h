// SPDX-License-Identifier: MIT
#pragma once

#include "Feature.h"

#include <string>

namespace tessera::mitab {

/// Which kind a point with that style is.
[[nodiscard]] Kind PointKindOf(const std::string &style);

/// Takes pen, brush, symbol, font and label from a style text of OGR, as far as objects of the kind have them. A label
/// gets no more than OGR tells of its box, the height of its letters; the width is the usual one.
void ReadStyle(const std::string &style, Feature &feature);

/// The style text by which OGR writes the object; empty for one without a look.
[[nodiscard]] std::string StyleOf(const Feature &feature);

/// The width of a pen that OGR writes for the one that is wanted: whole points from 11 on, and up to 7 pixels below.
[[nodiscard]] int WritablePenWidth(int width);

}  // namespace tessera::mitab
