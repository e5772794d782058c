// SPDX-License-Identifier: MIT
#include "BenchTable.h"

#include <QElapsedTimer>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTextStream>

#include <algorithm>

namespace tessera::bench {
namespace {

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

void BenchTable::Measure(const BenchRow &row, int runs) {
  std::vector<double> ours;
  std::vector<double> reference;
  for (int run = 0; run < runs; ++run) {
    if (row.reference) reference.push_back(row.reference());
    if (row.ours) ours.push_back(row.ours());
  }
  m_results.push_back(
      {row.name, row.unit, Median(std::move(ours)), Median(std::move(reference)), row.target, row.limit});
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
