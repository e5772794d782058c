// SPDX-License-Identifier: MIT
#pragma once

#include "Sheet.h"

namespace tessera::gallery {

// One panel of the sheet each, in the order of their layers from the bottom. A panel's source shows how its objects are
// made.

/// Pen styles, pen widths, and a line of several parts.
void AddLines(TSheet &sheet);
/// Brush styles, alone and over a background colour, and regions of several rings.
void AddAreas(TSheet &sheet);
/// Circles and rectangles.
void AddShapes(TSheet &sheet);
/// The signs of the library's own symbol font, in sizes and colours.
void AddSymbols(TSheet &sheet);
/// Texts turned, styled, over a background and fitted to boxes.
void AddTexts(TSheet &sheet);
/// A layer with attributes that labels its objects.
void AddLabels(TSheet &sheet);
/// A picture under the map, with a route drawn on it.
void AddPicture(TSheet &sheet);
/// Circles of one radius on the ground at different latitudes.
void AddGroundCircles(TSheet &sheet);
/// Pictures that can move over the map. They come last: what lies under a sprite has to be drawn before it.
void AddSprites(TSheet &sheet);

}  // namespace tessera::gallery
