// SPDX-License-Identifier: MIT
#pragma once

#include "BenchTable.h"

#include <QSize>

namespace tessera::bench {

/// Measures the drawing of 100,000 circles of all sizes, some of them dashed, side by side with QPainter's own and with
/// outlines of a point per pixel, drawn as polygons: the two that could stand in the place of the canvas's raster.
void MeasureCircles(QSize pictureSize, BenchTable &table, int runs);

}  // namespace tessera::bench
