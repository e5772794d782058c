// SPDX-License-Identifier: MIT
#include "BenchTable.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <map>
#include <string>

namespace tessera::bench {
namespace {

constexpr const char *Value = "value";

/// Gathers what the runs of one benchmark each came to.
class ValueCollector final : public benchmark::BenchmarkReporter {
 public:
  bool ReportContext(const Context & /*context*/) override { return true; }
  void ReportRuns(const std::vector<Run> &runs) override {
    for (const Run &run : runs) {
      if (run.run_type == Run::RT_Iteration) m_values[run.run_name.function_name].push_back(run.counters.at(Value));
    }
  }
  [[nodiscard]] std::vector<double> ValuesOf(const std::string &side) const {
    const auto found = m_values.find(side);
    return found == m_values.end() ? std::vector<double>() : found->second;
  }

 private:
  std::map<std::string, std::vector<double>> m_values;
};

void Register(const std::string &name, const BenchSide &side, int runs) {
  if (!side) return;
  benchmark::RegisterBenchmark(name.c_str(),
                               [&side](benchmark::State &state) {
                                 for ([[maybe_unused]] const auto step : state) state.counters[Value] = side();
                               })
      ->Iterations(1)
      ->Repetitions(runs);
}

std::optional<double> Median(std::vector<double> values) {
  if (values.empty()) return std::nullopt;
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

QString ToText(const std::optional<double> &value, int decimals) {
  return value ? QString::number(*value, 'f', decimals) : QStringLiteral("–");
}

QString ToLine(const BenchResult &result) {
  // Three digits or more of what is below a hundred.
  const auto toText = [](const std::optional<double> &value) { return ToText(value, value < 100.0 ? 3 : 1); };
  const QString target = result.limit ? QStringLiteral("ours ≤ %1").arg(*result.limit) : ToText(result.target, 3);
  return QStringLiteral("| %1 | %2 | %3 | %4 | %5 | %6 |")
      .arg(result.name, result.unit, toText(result.ours), toText(result.reference), ToText(result.Ratio(), 3), target);
}

}  // namespace

std::optional<double> BenchResult::Ratio() const {
  if (!ours || !reference || *reference <= 0) return std::nullopt;
  return *ours / *reference;
}

BenchTable::BenchTable() {
  std::array arguments = {std::string("bench"), std::string("--benchmark_enable_random_interleaving=true")};
  std::array<char *, 3> argv = {arguments[0].data(), arguments[1].data(), nullptr};
  int argc = 2;
  benchmark::Initialize(&argc, argv.data());
}

void BenchTable::Measure(const BenchRow &row, int runs) {
  constexpr const char *Ours = "ours";
  constexpr const char *Reference = "reference";
  Register(Reference, row.reference, runs);
  Register(Ours, row.ours, runs);
  ValueCollector values;
  benchmark::RunSpecifiedBenchmarks(&values);
  benchmark::ClearRegisteredBenchmarks();
  m_results.push_back(
      {row.name, row.unit, Median(values.ValuesOf(Ours)), Median(values.ValuesOf(Reference)), row.target, row.limit});
  QTextStream(stderr) << ToLine(m_results.back()) << Qt::endl;
}

QString BenchTable::ToMarkdown() const {
  QString text = QStringLiteral("| measured | unit | ours | reference | ratio | target |\n|---|---|--:|--:|--:|--:|\n");
  for (const BenchResult &result : m_results) text += ToLine(result) + u'\n';
  return text;
}

QByteArray BenchTable::ToJson() const {
  QJsonArray rows;
  const auto toValue = [](const std::optional<double> &value) { return value ? QJsonValue(*value) : QJsonValue(); };
  for (const BenchResult &result : m_results) {
    rows.append(QJsonObject{{QStringLiteral("measured"), result.name},
                            {QStringLiteral("unit"), result.unit},
                            {QStringLiteral("ours"), toValue(result.ours)},
                            {QStringLiteral("reference"), toValue(result.reference)},
                            {QStringLiteral("ratio"), toValue(result.Ratio())},
                            {QStringLiteral("target"), toValue(result.target)},
                            {QStringLiteral("limit"), toValue(result.limit)}});
  }
  return QJsonDocument(rows).toJson();
}

double SecondsOf(const std::function<void()> &work) {
  QElapsedTimer timer;
  timer.start();
  work();
  return static_cast<double>(timer.nsecsElapsed()) * 1e-9;
}

}  // namespace tessera::bench
