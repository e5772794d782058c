// SPDX-License-Identifier: MIT
#pragma once

#include "BenchTable.h"

#include <tessera/layers/TMapLayer.h>

namespace tessera::bench {

/// Measures the spatial index of a layer side by side with a packed R-tree over the bounds of the same objects. The
/// layer has the index on from then on.
class IndexBench {
 public:
  IndexBench(TMapLayer &layer, QString label, BenchTable &table)
      : m_layer(layer), m_label(std::move(label)), m_table(table) {}

  /// Building `buildRuns` times, and window queries `queryRuns` times.
  void Run(int buildRuns, int queryRuns);

 private:
  void MeasureBuild(int runs);
  void MeasureMemory();
  void MeasureQueries(double shareOfArea, const QString &title, int runs);
  [[nodiscard]] std::vector<TBounds> MakeWindows(double shareOfArea) const;

  TMapLayer &m_layer;
  QString m_label;
  BenchTable &m_table;
};

}  // namespace tessera::bench
