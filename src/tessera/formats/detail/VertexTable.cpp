// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/VertexTable.h>

#include <algorithm>
#include <limits>

namespace tessera::detail {

void VertexTable::Restart(qint64 origin) {
  m_origin = origin;
  m_vertices.clear();
  m_ends.clear();
  m_runs.clear();
  m_next = 0;
  m_run = 0;
}

void VertexTable::Add(const TMapPoint &vertex, qint64 begin, qint64 end) {
  // A line that is as long as that is read by whoever comes to it.
  if (end - m_origin > std::numeric_limits<std::uint32_t>::max()) return;
  const auto first = std::uint32_t(begin - m_origin);
  if (m_ends.empty() || m_ends.back() != first) m_runs.push_back({first, std::uint32_t(m_vertices.size())});
  m_vertices.push_back(vertex);
  m_ends.push_back(std::uint32_t(end - m_origin));
}

std::size_t VertexTable::RunEnd() const {
  return m_run + 1 < m_runs.size() ? m_runs[m_run + 1].firstVertex : m_vertices.size();
}

void VertexTable::Pass(std::size_t count) {
  m_next += count;
  if (m_next == RunEnd()) ++m_run;
}

std::uint32_t VertexTable::BeginOf(std::size_t vertex) const {
  return m_runs[m_run].firstVertex == vertex ? m_runs[m_run].begin : m_ends[vertex - 1];
}

VertexTable::Taken VertexTable::Take(qint64 position, TMapPoint *out, std::size_t count) {
  while (m_next < m_vertices.size() && m_origin + BeginOf(m_next) < position) Pass(1);
  if (m_next == m_vertices.size() || m_origin + BeginOf(m_next) != position) return {};
  const std::size_t taken = std::min(count, RunEnd() - m_next);
  std::copy_n(m_vertices.begin() + std::ptrdiff_t(m_next), taken, out);
  const qint64 lastBegin = m_origin + BeginOf(m_next + taken - 1);
  Pass(taken);
  return {taken, lastBegin, m_origin + m_ends[m_next - 1]};
}

qint64 VertexTable::GetNextBegin(qint64 otherwise) const {
  return m_next < m_vertices.size() ? m_origin + BeginOf(m_next) : otherwise;
}

}  // namespace tessera::detail
