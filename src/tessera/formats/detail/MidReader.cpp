// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/MidReader.h>
#include <tessera/formats/detail/MifText.h>

#include <algorithm>
#include <system_error>

namespace tessera::detail {
namespace {

constexpr char NoSeparator = '.';  // there are no numbers to be read as such
constexpr int MaxStarts = 4;

/// Packs the lines that begin in a chunk.
struct ChunkPacker {
  AsideSource source;
  MifScanner lines;
  MidPacker packer;

  ChunkPacker(ByteSource &of, MidPacker by) : source(of), lines(source, NoSeparator), packer(std::move(by)) {}

  void Pack(qint64 begin, qint64 end, MidTable &table) {
    table.Restart(begin);
    lines.MoveToLine(begin);
    while (lines.GetPosition() < end && !lines.AtEnd()) {
      const qint64 lineBegin = lines.GetPosition();
      const std::string_view values = packer.Pack(lines.ReadLine());
      table.Add(values, lineBegin, lines.GetPosition());
    }
  }
};

}  // namespace

MidReader::MidReader(ByteSource *source, const LookAheadLimits &limits) : m_limits(limits) {
  if (source == nullptr) return;
  m_lines.emplace(*source, NoSeparator);
  if (limits.AreWorthIt(source->GetSize())) m_startsLeft = MaxStarts;
}

void MidReader::SetDelimiter(std::string_view delimiter) {
  m_ahead.reset();
  m_packer.SetDelimiter(delimiter);
}

void MidReader::SetColumns(const TDataFields &columns) {
  m_ahead.reset();
  m_packer.SetColumns(columns);
}

void MidReader::StartLookAhead() {
  --m_startsLeft;
  try {
    const auto chunks = std::make_shared<ChunkPacker>(m_lines->GetSource(), m_packer);
    const auto pack = [chunks](qint64 begin, qint64 end, MidTable &table) { chunks->Pack(begin, end, table); };
    m_ahead = std::make_unique<Ahead>(m_lines->GetPosition(), m_lines->GetSource().GetSize(), pack, m_limits);
  } catch (const std::system_error &) {
    m_startsLeft = 0;
  }
}

std::string_view MidReader::NextValues() {
  if (!m_ahead && m_startsLeft > 0) StartLookAhead();
  if (MidTable *table = m_ahead ? m_ahead->At(m_lines->GetPosition()) : nullptr) {
    if (const auto line = table->Take(m_lines->GetPosition())) {
      m_lines->MoveTo(line->end);
      return line->values;
    }
  }
  return m_packer.Pack(m_lines->ReadLine());
}

void MidReader::ReadValues(TDataFields &fields) {
  if (!m_lines) return;
  if (!m_lines->AtEnd()) return fields.SetRecord(NextValues());
  if (HasColumns()) ++m_missingLines;
}

bool MidReader::HasMore() {
  while (m_lines && !m_lines->AtEnd()) {
    if (!TrimBytes(m_lines->ReadLine()).empty()) return true;
  }
  return false;
}

void MidReader::ThrowIfFailed() const {
  if (m_lines) m_lines->GetSource().ThrowIfFailed();
}

}  // namespace tessera::detail
