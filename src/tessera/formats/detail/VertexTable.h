// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/base/TMapPoint.h>

#include <QtGlobal>

#include <cstdint>
#include <vector>

namespace tessera::detail {

/// Vertices that stand in lines of their own somewhere in a text, from front to back, and where these lines begin and
/// end. It is filled once and then read from front to back.
class TESSERA_CORE_EXPORT VertexTable {
 public:
  /// Some of the vertices, whose lines follow on each other.
  struct Taken {
    std::size_t count = 0;
    qint64 lastBegin = 0;  ///< Where the line of the last one begins.
    qint64 end = 0;        ///< Where the line after it begins.
  };

  /// Empties the table, for lines from `origin` on.
  void Restart(qint64 origin);
  /// Appends the vertex of the line [begin, end). @pre that follows on the lines before, or on some gap after them
  void Add(const TMapPoint &vertex, qint64 begin, qint64 end);

  /// Copies up to `count` vertices from the one whose line begins at `position` on; none when there is no such.
  /// @pre positions never decrease
  Taken Take(qint64 position, TMapPoint *out, std::size_t count);
  /// Where the first line begins that was not yet passed; `otherwise` when all were.
  [[nodiscard]] qint64 GetNextBegin(qint64 otherwise) const;

 private:
  /// Lines without a gap between them, up to those of the next run.
  struct Run {
    std::uint32_t begin;
    std::uint32_t firstVertex;
  };
  /// One past the last vertex of the current run.
  [[nodiscard]] std::size_t RunEnd() const;
  /// Where the line of a vertex of the current run begins.
  [[nodiscard]] std::uint32_t BeginOf(std::size_t vertex) const;
  /// Passes over so many vertices of the current run.
  void Pass(std::size_t count);

  qint64 m_origin = 0;  // what the positions of lines count from
  std::vector<TMapPoint> m_vertices;
  std::vector<std::uint32_t> m_ends;
  std::vector<Run> m_runs;
  std::size_t m_next = 0;  // vertex
  std::size_t m_run = 0;   // that it belongs to
};

}  // namespace tessera::detail
