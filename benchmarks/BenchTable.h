// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <optional>
#include <vector>

namespace tessera::bench {

/// Runs a side once and gives what is measured, in the unit of the row.
using BenchSide = std::function<double()>;

/// One thing that is measured, on both sides. A side may be missing.
struct BenchRow {
  QString name;
  QString unit;
  BenchSide ours;
  BenchSide reference;
  /// The highest ratio of ours to the reference that is good enough.
  std::optional<double> target = std::nullopt;
  /// The highest value of ours that is good enough.
  std::optional<double> limit = std::nullopt;
};

struct BenchResult {
  QString name;
  QString unit;
  std::optional<double> ours;
  std::optional<double> reference;
  std::optional<double> target;
  std::optional<double> limit;

  [[nodiscard]] std::optional<double> Ratio() const;
};

/// The medians of all rows measured so far.
class BenchTable {
 public:
  BenchTable();

  /// Runs both sides mixed, `runs` times each, so that whatever slows the machine down for a while slows both; tells
  /// standard error of each row when it is done.
  void Measure(const BenchRow &row, int runs);

  [[nodiscard]] QString ToMarkdown() const;
  /// An array of objects with the names of the table's columns.
  [[nodiscard]] QByteArray ToJson() const;

 private:
  std::vector<BenchResult> m_results;
};

/// The seconds that `work` takes.
[[nodiscard]] double SecondsOf(const std::function<void()> &work);

}  // namespace tessera::bench
