// SPDX-License-Identifier: MIT
#pragma once

#include "BenchTable.h"
#include "TesseraSide.h"

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
  void MeasureClick(int runs);
  void MeasureSelection(int runs);

  TesseraSide m_side;
  BenchTable &m_table;
};

}  // namespace tessera::bench
