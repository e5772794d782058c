// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/MidReader.h>
#include <tessera/formats/detail/MifText.h>

namespace tessera::detail {

void MidSplitter::SetDelimiter(std::string_view delimiter) {
  m_delimiter = delimiter;
  m_borders.assign(m_delimiter.size() + 1, 0);
  std::size_t border = 0;
  for (std::size_t i = 1; i < m_delimiter.size(); ++i) {
    while (border > 0 && m_delimiter[i] != m_delimiter[border]) border = m_borders[border];
    if (m_delimiter[i] == m_delimiter[border]) ++border;
    m_borders[i + 1] = border;
  }
}

std::size_t MidSplitter::Find() const {
  if (m_delimiter.empty()) return std::string_view::npos;
  if (m_delimiter.size() == 1) return m_rest.find(m_delimiter.front());
  std::size_t matched = 0;
  for (std::size_t i = 0; i < m_rest.size(); ++i) {
    while (matched > 0 && m_rest[i] != m_delimiter[matched]) matched = m_borders[matched];
    if (m_rest[i] == m_delimiter[matched]) ++matched;
    if (matched == m_delimiter.size()) return i + 1 - matched;
  }
  return std::string_view::npos;
}

std::string_view MidSplitter::Next() {
  const std::size_t end = Find();
  const std::string_view value = m_rest.substr(0, end);
  if (end == std::string_view::npos) {
    m_isAtEnd = true;
  } else {
    m_rest.remove_prefix(end + m_delimiter.size());
  }
  return value;
}

MidReader::MidReader(ByteSource *source) {
  if (source != nullptr) m_lines.emplace(*source, '.');
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
