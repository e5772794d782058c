// SPDX-License-Identifier: MIT
#pragma once

#include "BenchTable.h"
#include "TesseraSide.h"

#include <random>

namespace tessera::bench {

/// Measures how a map that shows many objects answers the mouse, each row beside what the plainest program would do.
class InputBench {
 public:
  /// Shows all of a MIF file.
  InputBench(const QString &path, QSize size, BenchTable &table);

  void Run(int runs);

 private:
  /// Milliseconds that a tool takes for a move of the mouse in the middle of its gesture, with what is shown anew.
  double FrameMs(const QPoint &at);
  void MeasureFrames(int runs);
  [[nodiscard]] QPoint Somewhere();
  void MeasureClick(int runs);
  /// Moves of the mouse with and without a look for places to snap to.
  void MeasureSnapping(int runs);
  void MeasureSelection(int runs);

  TesseraSide m_side;
  BenchTable &m_table;
  std::mt19937 m_random{1};
};

}  // namespace tessera::bench
