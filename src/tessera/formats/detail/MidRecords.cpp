// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/MidRecords.h>
#include <tessera/formats/detail/MifText.h>

#include <limits>

namespace tessera::detail {

void MidPacker::SetColumns(const TDataFields &columns) {
  m_kinds.clear();
  for (int i = 0; i < columns.GetCount(); ++i) {
    switch (columns.GetFields(i).GetDataType()) {
      case TDataType::dtString:
        m_kinds.push_back(Kind::Text);
        break;
      case TDataType::dtFloat:
      case TDataType::dtDecimal:
      case TDataType::dtInteger:
        m_kinds.push_back(Kind::Number);
        break;
      default:
        m_kinds.push_back(Kind::Other);
    }
  }
}

void MidPacker::AppendText(std::string_view bytes) {
  if (IsAscii(bytes)) return m_record.AppendText(bytes);
  DecodeWindows1251(bytes, m_utf8);
  m_record.AppendText(m_utf8);
}

std::string_view MidPacker::Pack(std::string_view line) {
  m_splitter.SetLine(line);
  m_record.Clear();
  std::size_t unassigned = 0;  // values not yet written, which need not be if they are the last
  for (std::size_t i = 0; i < m_kinds.size() && !m_splitter.AtEnd(); ++i) {
    const std::string_view item = m_splitter.Next();
    if (m_kinds[i] == Kind::Other) {
      ++unassigned;
      continue;
    }
    for (; unassigned > 0; --unassigned) m_record.AppendUnassigned();
    if (m_kinds[i] == Kind::Number) {
      AppendText(item);
    } else {
      AppendText(item.size() > 2 ? item.substr(1, item.size() - 2) : std::string_view());
    }
  }
  return m_record.Bytes();
}

void MidTable::Restart(qint64 origin) {
  m_origin = origin;
  m_lines.clear();
  m_values.clear();
  m_next = 0;
}

void MidTable::Add(std::string_view values, qint64 begin, qint64 end) {
  constexpr std::uint32_t Most = std::numeric_limits<std::uint32_t>::max();
  // What is as long as that is read by whoever comes to it.
  if (end - m_origin > Most || m_values.size() + values.size() > Most) return;
  const std::size_t valuesBegin = m_values.size();
  m_values.insert(m_values.end(), values.begin(), values.end());
  m_lines.push_back({std::uint32_t(begin - m_origin), std::uint32_t(end - m_origin), std::uint32_t(valuesBegin),
                     std::uint32_t(values.size())});
}

std::optional<MidTable::Line> MidTable::Take(qint64 position) {
  while (m_next < m_lines.size() && m_origin + m_lines[m_next].begin < position) ++m_next;
  if (m_next == m_lines.size() || m_origin + m_lines[m_next].begin != position) return std::nullopt;
  const Entry &entry = m_lines[m_next];
  return Line{std::string_view(m_values.data() + entry.firstValue, entry.valuesSize), m_origin + entry.end};
}

}  // namespace tessera::detail
