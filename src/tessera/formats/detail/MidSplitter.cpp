// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/MidSplitter.h>

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

}  // namespace tessera::detail
