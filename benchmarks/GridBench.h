// SPDX-License-Identifier: MIT
#pragma once

#include "BenchTable.h"
#include "TesseraSide.h"

namespace tessera::bench {

/// Measures the attribute grid of a MIF file, each row beside what Qt's table view costs with as many rows of nothing.
void MeasureGrid(const QString &path, QSize size, BenchTable &table, int runs);

}  // namespace tessera::bench
