// SPDX-License-Identifier: MIT
#pragma once

#include "BenchTable.h"
#include "TesseraSide.h"

namespace tessera::bench {

/// Measures what an edit costs in a big layer: each row beside the same work done in the plainest way, or beside the
/// picture that would be drawn anyway.
class EditBench {
 public:
  EditBench(QSize pictureSize, BenchTable &table) : m_size(pictureSize), m_table(table) {}

  /// Moves objects of a MIF file of regions, and of other layers and maps, and draws the next picture.
  void MeasureNextPicture(const QString &regionsPath, int runs);
  /// Deletes 0.1 % and 1 % of the objects of a MIF file of points.
  void MeasureDeleting(const QString &pointsPath, int runs);
  /// Hides a layer of selected points.
  void MeasureHiding(const QString &pointsPath, int runs);

 private:
  void MeasureDeleting(TMapLayer &layer, int share, int runs);

  QSize m_size;
  BenchTable &m_table;
};

}  // namespace tessera::bench
