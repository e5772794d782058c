// SPDX-License-Identifier: MIT
#pragma once

#include "Feature.h"

#include <string>

namespace tessera::mitab {

/// Which kind a point with that style is.
[[nodiscard]] Kind PointKindOf(const std::string &style);

/// Takes pen, brush, symbol, font and label from a style text of OGR, as far as objects of the kind have them. A label
/// gets what OGR tells of its box, the height.
void ReadStyle(const std::string &style, Feature &feature);

/// Takes the height of a turned text, which OGR has given as that of the upright box around it, and the place that it
/// has worked out from that, as it does for .mif files, for what they are. @pre the object is a text
void StraightenLabel(Feature &feature);

/// The style text by which OGR writes the object; empty for one without a look.
[[nodiscard]] std::string StyleOf(const Feature &feature);

/// The width of a pen that OGR writes for the one that is wanted: whole points from 11 on, and up to 7 pixels below.
[[nodiscard]] int WritablePenWidth(int width);

}  // namespace tessera::mitab
