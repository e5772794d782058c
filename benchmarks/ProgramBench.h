// SPDX-License-Identifier: MIT
#pragma once

#include "BenchTable.h"

#include <QSize>
#include <QStringList>

#include <vector>

namespace tessera::bench {

/// Measures what a user waits for: the program `tessera` on a file as a whole process, from its start to its end,
/// beside a process that reads the file through GDAL, and beside loading and drawing alone.
class ProgramBench {
 public:
  /// The process has to be so many times as fast as GDAL's.
  ProgramBench(QString label, QString mifPath, double timesGdal, QSize pictureSize, BenchTable &table);

  void Run(int runs);

 private:
  struct Command {
    QString name;
    QStringList arguments;
    bool draws;
  };
  void MeasureTime(const Command &command, int runs);
  void MeasureMemory(const Command &command);
  [[nodiscard]] QString Title(const Command &command, const QString &what) const;

  QString m_label;
  QString m_mifPath;
  double m_timesGdal;
  QSize m_pictureSize;
  BenchTable &m_table;
  std::vector<double> m_gdalSeconds;  // of all runs up to now
};

/// The option by which the benchmark program reads the file that follows through GDAL and does nothing else.
inline constexpr char ReadWithGdal[] = "--read-with-gdal";

}  // namespace tessera::bench
