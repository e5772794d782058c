// SPDX-License-Identifier: MIT
#pragma once

#include "BenchTable.h"
#include "GdalReference.h"
#include "TesseraSide.h"

#include <array>

namespace tessera::bench {

/// What is measured of files, and how often.
struct FileBenchSettings {
  QSize pictureSize;
  /// How often what takes seconds is run: reading and writing.
  int slowRuns;
  /// How often a picture is drawn.
  int fastRuns;
  bool drawsOnly;
  bool indexOnly;
  bool tablesOnly;
  /// Where the pictures drawn are kept; nowhere when empty.
  QString picturesDir;

  void KeepPicture(const QImage &picture, QString title) const;
};

/// The goals of a set, as ratios to the reference; 0 for none.
struct FileGoals {
  double load = 0;
  /// Of a vertex, or of an object where all are points: loaded, and with the index when a picture was drawn.
  double loadedBytes = 0;
  double usedBytes = 0;
  /// Pictures of all, of 1/16 and of 1/256 of the area.
  std::array<double, 3> pictures = {0, 0, 0};
  /// Loading the same as a TAB file, which is only measured with a goal: it is put beside the file.
  double table = 0;
};

/// A map file and what it is called.
struct BenchFile {
  QString label;
  QString mifPath;
  int symbolSizePx;
  FileGoals goals;
};

/// Measures everything there is to measure about one file.
class FileBench {
 public:
  FileBench(BenchFile file, const FileBenchSettings &settings, BenchTable &table)
      : m_file(std::move(file)), m_settings(settings), m_table(table) {}

  void Run();

 private:
  [[nodiscard]] QString Title(const QString &what) const { return m_file.label + u' ' + what; }
  [[nodiscard]] std::unique_ptr<TesseraSide> Load() const;

  void MeasureLoad();
  void MeasureMemory();
  void MeasureTable();
  void MeasureSave();
  void MeasureDrawing(const FlatMap &map);
  void MeasurePan(BareLoop &loop);
  void MeasureSmall(const BareView &view);
  void MeasureFirstPicture(const BareView &view);
  void MeasureUsedHeap(const BareView &view);
  void MeasureIndex(const FlatMap &map);
  void MeasureIndexedPictures(const FlatMap &map);

  BenchFile m_file;
  const FileBenchSettings &m_settings;
  BenchTable &m_table;
  std::unique_ptr<GdalMap> m_gdal;
  std::unique_ptr<TesseraSide> m_tessera;
};

}  // namespace tessera::bench
