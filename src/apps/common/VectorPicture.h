// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>

class QPainter;

namespace tessera::apps {

/// Draws what a map shows as lines, areas and outlines of letters instead of pixels, for paper and drawing programs:
/// its background and, from the bottom up, the objects in view of the layers that are shown, in their own style, with
/// their labels. Coordinates are client pixels, as fractions. Pictures under the map, the selection, and what the
/// bitmap of a brush would show are left out; hatches become those of Qt. The map's decorations come on top.
void DrawAsVectors(TTessera &map, QPainter &painter);

}  // namespace tessera::apps
