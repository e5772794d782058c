// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/MidReader.h>
#include <tessera/formats/detail/MifText.h>

namespace tessera::detail {

MidReader::MidReader(std::optional<std::string_view> bytes) : m_bytes(bytes.value_or(std::string_view())) {
  if (bytes) m_lines.emplace(*bytes, '.');
}

void MidReader::SetColumns(const TDataFields &columns) {
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

void MidReader::AppendText(std::string_view bytes) {
  if (IsAscii(bytes)) return m_record.AppendText(bytes);
  DecodeWindows1251(bytes, m_utf8);
  m_record.AppendText(m_utf8);
}

void MidReader::ReadValues(TDataFields &fields) {
  if (!m_lines) return;
  if (m_lines->AtEnd()) {
    if (!m_kinds.empty()) ++m_missingLines;
    return;
  }
  m_splitter.SetLine(m_lines->ReadLine());
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
  fields.SetRecord(m_record.Bytes());
}

bool MidReader::HasMore() const {
  return m_lines && !TrimBytes(m_bytes.substr(std::size_t(m_lines->GetPosition()))).empty();
}

}  // namespace tessera::detail
